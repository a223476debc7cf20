// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFTokenizer.h"

#include "Platform/Foundation/ASCII.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr std::array<bool, 256> makeSpecials() {
    std::array<bool, 256> specials{};
    for (char c : {'\\', '{', '}', '\r', '\n', '\0'}) specials[static_cast<unsigned char>(c)] = true;
    return specials;
}

// The bytes that end a run of text.
constexpr std::array<bool, 256> kSpecials = makeSpecials();

constexpr bool isSpecial(char c) { return kSpecials[static_cast<unsigned char>(c)]; }

} // namespace

RTFToken RTFTokenizer::next() {
    using Kind = RTFToken::Kind;
    while (next_ < end_) {
        const char* start = next_;
        switch (*next_++) {
        case '{': return {Kind::groupBegin};
        case '}': return {Kind::groupEnd};
        case '\r':
        case '\n':
        case '\0': continue;
        case '\\': {
            RTFToken token = control();
            // A byte that is not told whole is left out.
            if (token.kind == Kind::byte && !token.hasParameter) continue;
            return token;
        }
        default:
            while (next_ < end_ && !isSpecial(*next_)) ++next_;
            return {Kind::text, false, 0, {start, size_t(next_ - start)}};
        }
    }
    return {Kind::end};
}

RTFToken RTFTokenizer::control() {
    using Kind = RTFToken::Kind;
    if (next_ == end_) return {Kind::end};
    if (isLetter(*next_)) return word();

    const char* symbol = next_++;
    if (*symbol != '\'') return {Kind::symbol, false, 0, {symbol, 1}};
    if (end_ - next_ < 2) return {Kind::byte};
    int high = hexDigit(next_[0]), low = hexDigit(next_[1]);
    if (high < 0 || low < 0) return {Kind::byte};
    next_ += 2;
    return {Kind::byte, true, high * 16 + low, {next_ - 2, 2}};
}

RTFToken RTFTokenizer::word() {
    const char* start = next_;
    while (next_ < end_ && isLetter(*next_)) ++next_;
    RTFToken token{RTFToken::Kind::word, false, 0, {start, size_t(next_ - start)}};
    parameter(token);
    if (next_ < end_ && *next_ == ' ') ++next_;
    if (token.text == "bin") skipBytes(token.parameter);
    return token;
}

void RTFTokenizer::parameter(RTFToken& token) {
    const char* p = next_;
    bool negative = p < end_ && *p == '-';
    if (negative) ++p;
    if (p == end_ || !isDigit(*p)) return;

    int64_t value = 0;
    for (; p < end_ && isDigit(*p); ++p)
        value = std::min<int64_t>(value * 10 + (*p - '0'), std::numeric_limits<int32_t>::max());
    token.hasParameter = true;
    token.parameter = int32_t(negative ? -value : value);
    next_ = p;
}

void RTFTokenizer::skipBytes(int32_t count) {
    if (count > 0) next_ += std::min<ptrdiff_t>(count, end_ - next_);
}

void RTFTokenizer::skipGroup(Deadline& deadline) {
    size_t depth = 0;
    while (next_ < end_ && !deadline.passed()) {
        next_ = std::find_if(next_, end_, [](char c) { return c == '\\' || c == '{' || c == '}'; });
        if (next_ == end_) return;
        if (*next_ == '}' && depth == 0) return;
        switch (*next_++) {
        case '{': ++depth; break;
        case '}': --depth; break;
        default: control(); break;
        }
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/PercentEscapes.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

using View = std::u16string_view;

constexpr char kHexDigits[] = "0123456789ABCDEF";

constexpr auto kIsLegal = [] {
    std::array<bool, 0x80> legal{};
    for (char32_t c = 0; c < legal.size(); ++c) legal[c] = isLetter(c) || isDigit(c);
    for (char c : std::string_view("!$&'()*+,-./:;=?@_~")) legal[static_cast<unsigned char>(c)] = true;
    return legal;
}();

bool contains(View set, View character) { return set.find(character) != View::npos; }

void appendEscape(std::u16string& out, unsigned char byte) {
    out.push_back(u'%');
    out.push_back(char16_t(kHexDigits[byte >> 4]));
    out.push_back(char16_t(kHexDigits[byte & 15]));
}

// The character at `i`; a lone surrogate is one.
View characterAt(View text, size_t i) {
    const bool pair = isHighSurrogate(text[i]) && i + 1 < text.size() && isLowSurrogate(text[i + 1]);
    return text.substr(i, pair ? 2 : 1);
}

// The byte of the escape at the front of `text`.
std::optional<unsigned char> escapedByte(View text) {
    if (text.size() < 3 || text[0] != u'%') return std::nullopt;
    const int high = hexDigit(text[1]), low = hexDigit(text[2]);
    if (high < 0 || low < 0) return std::nullopt;
    return static_cast<unsigned char>(high << 4 | low);
}

size_t sequenceLength(unsigned char lead) { return lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4; }

// The units of the character whose escapes are at the front of `text`, "" when they are not UTF-8.
std::u16string escapedCharacter(View text) {
    std::array<char, 4> bytes;
    size_t count = 0, wanted = 1;
    for (; count < wanted; ++count) {
        const auto byte = escapedByte(text.substr(std::min(3 * count, text.size())));
        if (!byte) return {};
        if (count == 0) wanted = sequenceLength(*byte);
        bytes[count] = char(*byte);
    }
    std::u16string character;
    if (!appendUTF8(character, {bytes.data(), count})) character.clear();
    return character;
}

} // namespace

NSString CFURLCreateStringByAddingPercentEscapes(const NSString& text, const NSString& leftUnescaped,
                                                 const NSString& alsoEscaped) {
    const View units = text.text(), left = leftUnescaped.text(), also = alsoEscaped.text();
    const auto isLiteral = [&](View character) {
        const bool legal = character[0] < 0x80 && kIsLegal[character[0]];
        return legal ? !contains(also, character) : contains(left, character);
    };
    if (!text) return nullptr;
    std::u16string out;
    out.reserve(units.size() + units.size() / 2);
    for (size_t i = 0; i < units.size();) {
        const View character = characterAt(units, i);
        i += character.size();
        if (isLiteral(character)) {
            out += character;
            continue;
        }
        if (hasLoneSurrogate(character)) return nullptr;
        for (char byte : toUTF8(character)) appendEscape(out, static_cast<unsigned char>(byte));
    }
    return out.size() == units.size() ? text : NSString(std::move(out));
}

NSString CFURLCreateStringByReplacingPercentEscapes(const NSString& text, const NSString& leftEscaped) {
    const View units = text.text(), kept = leftEscaped.text();
    size_t escape = leftEscaped ? units.find(u'%') : View::npos;
    if (escape == View::npos) return text;

    std::u16string out;
    out.reserve(units.size());
    size_t start = 0; // of what is not copied yet
    for (; escape != View::npos; escape = units.find(u'%', start)) {
        const std::u16string character = escapedCharacter(units.substr(escape));
        if (character.empty()) return nullptr;
        const size_t length = 3 * toUTF8(character).size();
        out += units.substr(start, escape - start);
        out += contains(kept, character) ? units.substr(escape, length) : View(character);
        start = escape + length;
    }
    out += units.substr(start);
    return out;
}

std::string percentEscaped(std::string_view bytes, std::string_view literal) {
    std::string out;
    out.reserve(bytes.size());
    for (char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (isLetter(byte) || isDigit(byte) || literal.find(c) != std::string_view::npos) {
            out.push_back(c);
        } else {
            out.append({'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]});
        }
    }
    return out;
}

// SPDX-License-Identifier: Apache-2.0
//
// ASCII characters in text of any encoding that contains them: kinds of characters, digits, case. Nothing
// beyond ASCII belongs to any kind or has a case, whatever the locale.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

// These take bytes and UTF-16 units alike.
constexpr bool isASCII(char32_t c) { return c < 0x80; }
constexpr bool isDigit(char32_t c) { return c >= U'0' && c <= U'9'; }

// White space as the C library sees it: SPACE, TAB, LF, VT, FF, CR.
constexpr bool isSpace(char32_t c) { return c == U' ' || (c >= U'\t' && c <= U'\r'); }

// White space of XML: SPACE, TAB, LF, CR.
constexpr bool isXMLSpace(char32_t c) { return c == U' ' || c == U'\t' || c == U'\n' || c == U'\r'; }

template <std::integral Unit>
constexpr Unit lowered(Unit c) {
    return c >= 'A' && c <= 'Z' ? Unit(c + ('a' - 'A')) : c;
}

template <std::integral Unit>
constexpr Unit uppered(Unit c) {
    return c >= 'a' && c <= 'z' ? Unit(c - ('a' - 'A')) : c;
}

constexpr bool isLetter(char32_t c) { return lowered(c) >= U'a' && lowered(c) <= U'z'; }

// The value of a hexadecimal digit; -1 of any other character.
constexpr int hexDigit(char32_t c) {
    if (isDigit(c)) return int(c - U'0');
    const char32_t lower = lowered(c);
    return lower >= U'a' && lower <= U'f' ? int(lower - U'a') + 10 : -1;
}

// What the functions below share for both kinds of text.
namespace ASCIIText {

// Looks at a block at once, for long texts.
template <class View>
constexpr bool isASCII(View text) {
    constexpr size_t kBlock = 64;
    for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
        char32_t all = 0;
        for (auto c : text.substr(0, kBlock)) all |= char32_t(c);
        if (!::isASCII(all)) return false;
    }
    return true;
}

template <class View>
constexpr bool equalIgnoringCase(View a, View b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](auto x, auto y) { return ::lowered(x) == ::lowered(y); });
}

template <class View>
constexpr View trimmed(View text, bool (*isBlank)(char32_t)) {
    while (!text.empty() && isBlank(char32_t(text.front()))) text.remove_prefix(1);
    while (!text.empty() && isBlank(char32_t(text.back()))) text.remove_suffix(1);
    return text;
}

template <class String>
String lowered(String text) {
    for (auto& c : text) c = ::lowered(c);
    return text;
}

} // namespace ASCIIText

constexpr bool isASCII(std::string_view text) { return ASCIIText::isASCII(text); }
constexpr bool isASCII(std::u16string_view text) { return ASCIIText::isASCII(text); }

inline std::string lowered(std::string_view text) { return ASCIIText::lowered(std::string(text)); }
inline std::u16string lowered(std::u16string_view text) { return ASCIIText::lowered(std::u16string(text)); }

inline std::string uppered(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = uppered(c);
    return upper;
}

constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return ASCIIText::equalIgnoringCase(a, b);
}
constexpr bool equalIgnoringCase(std::u16string_view a, std::u16string_view b) {
    return ASCIIText::equalIgnoringCase(a, b);
}
constexpr bool startsWithIgnoringCase(std::string_view text, std::string_view start) {
    return equalIgnoringCase(text.substr(0, start.size()), start);
}

// The text without the blanks at either end, of the kind that `isBlank` tells.
constexpr std::string_view trimmed(std::string_view text, bool (*isBlank)(char32_t)) {
    return ASCIIText::trimmed(text, isBlank);
}
constexpr std::u16string_view trimmed(std::u16string_view text, bool (*isBlank)(char32_t)) {
    return ASCIIText::trimmed(text, isBlank);
}

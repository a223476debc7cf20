// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLListMarker.h"

#include <algorithm>

namespace {

// What follows a number or a letter in its marker.
constexpr std::u16string_view kNumberSuffix;

std::u16string decimalNumber(int64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

std::u16string letters(int64_t number, char16_t first) {
    std::u16string text;
    for (; number > 0; number = (number - 1) / 26) text.push_back(char16_t(first + (number - 1) % 26));
    std::reverse(text.begin(), text.end());
    return text;
}

std::u16string roman(int64_t number, bool upper) {
    struct Numeral {
        int value;
        const char* text;
    };
    constexpr Numeral kNumerals[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"},
                                     {90, "xc"},  {50, "l"},   {40, "xl"}, {10, "x"},   {9, "ix"},
                                     {5, "v"},    {4, "iv"},   {1, "i"}};
    std::u16string text;
    for (const Numeral& numeral : kNumerals) {
        for (; number >= numeral.value; number -= numeral.value) {
            for (const char* c = numeral.text; *c; ++c) text.push_back(char16_t(upper ? *c - 'a' + 'A' : *c));
        }
    }
    return text;
}

} // namespace

std::u16string listMarker(HTMLListStyle style, int64_t number) {
    const bool isAlpha = style == HTMLListStyle::lowerAlpha || style == HTMLListStyle::upperAlpha;
    const bool isRoman = style == HTMLListStyle::lowerRoman || style == HTMLListStyle::upperRoman;
    if ((isAlpha && number < 1) || (isRoman && (number < 1 || number > 3999))) style = HTMLListStyle::decimal;

    std::u16string marker;
    switch (style) {
    case HTMLListStyle::none: return {};
    case HTMLListStyle::disc: return u"\u2022";
    case HTMLListStyle::circle: return u"\u25E6";
    case HTMLListStyle::square: return u"\u25AA";
    case HTMLListStyle::decimal: marker = decimalNumber(number); break;
    case HTMLListStyle::lowerAlpha: marker = letters(number, u'a'); break;
    case HTMLListStyle::upperAlpha: marker = letters(number, u'A'); break;
    case HTMLListStyle::lowerRoman: marker = roman(number, false); break;
    case HTMLListStyle::upperRoman: marker = roman(number, true); break;
    }
    return marker.append(kNumberSuffix);
}

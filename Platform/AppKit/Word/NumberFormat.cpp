// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/NumberFormat.h"

#include <charconv>
#include <string_view>

namespace Word {

namespace {

constexpr uint32_t kRomanLimit = 4000;
constexpr uint32_t kLetterLimit = 780; // thirty times the alphabet

void appendDigits(std::u16string& out, uint32_t number) {
    char digits[10];
    auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    out.append(digits, end);
}

void appendRoman(std::u16string& out, uint32_t number, bool isUpper) {
    struct Numeral {
        uint32_t value;
        std::string_view letters;
    };
    static constexpr Numeral kNumerals[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"},
                                            {90, "xc"},  {50, "l"},   {40, "xl"}, {10, "x"},   {9, "ix"},
                                            {5, "v"},    {4, "iv"},   {1, "i"}};
    for (const Numeral& numeral : kNumerals) {
        for (; number >= numeral.value; number -= numeral.value) {
            for (char letter : numeral.letters)
                out.push_back(char16_t(isUpper ? letter - 'a' + 'A' : letter));
        }
    }
}

// a to z, then aa to zz, then aaa ...
void appendLetters(std::u16string& out, uint32_t number, bool isUpper) {
    out.append((number - 1) / 26 + 1, char16_t((isUpper ? 'A' : 'a') + (number - 1) % 26));
}

std::u16string_view ordinalEnding(uint32_t number) {
    if (number % 100 / 10 == 1) return u"th";
    switch (number % 10) {
    case 1: return u"st";
    case 2: return u"nd";
    case 3: return u"rd";
    default: return u"th";
    }
}

} // namespace

void appendNumber(std::u16string& out, uint32_t number, uint8_t format) {
    bool isUpper = format == NumberFormat::upperRoman || format == NumberFormat::upperLetter;
    switch (format) {
    case NumberFormat::bullet:
    case NumberFormat::none: return;
    case NumberFormat::upperRoman:
    case NumberFormat::lowerRoman:
        if (number == 0 || number >= kRomanLimit) break;
        return appendRoman(out, number, isUpper);
    case NumberFormat::upperLetter:
    case NumberFormat::lowerLetter:
        if (number == 0 || number > kLetterLimit) break;
        return appendLetters(out, number, isUpper);
    case NumberFormat::ordinal:
        appendDigits(out, number);
        out += ordinalEnding(number);
        return;
    case NumberFormat::leadingZero:
        if (number < 10) out.push_back(u'0');
        break;
    default: break;
    }
    appendDigits(out, number);
}

} // namespace Word

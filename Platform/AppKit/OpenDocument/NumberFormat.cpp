// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OpenDocument/NumberFormat.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace OpenDocument {

namespace {

constexpr int kLetters = 26;
constexpr int kLargestRoman = 3999;
constexpr int kMostRepeats = 10;

std::string digits(int number) {
    char buffer[16];
    auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
    return {buffer, end};
}

std::string letters(int number) {
    std::string text;
    for (; number > 0; number = (number - 1) / kLetters) text += char('a' + (number - 1) % kLetters);
    std::reverse(text.begin(), text.end());
    return text;
}

std::string repeatedLetters(int number) {
    return std::string(size_t((number - 1) / kLetters + 1), char('a' + (number - 1) % kLetters));
}

std::string roman(int number) {
    struct Numeral {
        int value;
        std::string_view text;
    };
    constexpr Numeral kNumerals[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"},
                                     {90, "xc"},  {50, "l"},   {40, "xl"}, {10, "x"},   {9, "ix"},
                                     {5, "v"},    {4, "iv"},   {1, "i"}};
    std::string text;
    for (const Numeral& numeral : kNumerals) {
        for (; number >= numeral.value; number -= numeral.value) text += numeral.text;
    }
    return text;
}

} // namespace

void appendNumber(std::u16string& out, int number, char16_t format, bool lettersRepeat) {
    bool isUpper = format == u'A' || format == u'I', isRoman = format == u'i' || format == u'I';
    bool isLetter = format == u'a' || format == u'A';
    std::string text;
    if (isRoman && number > 0 && number <= kLargestRoman) {
        text = roman(number);
    } else if (isLetter && number > 0 && (!lettersRepeat || number <= kLetters * kMostRepeats)) {
        text = lettersRepeat ? repeatedLetters(number) : letters(number);
    } else {
        text = digits(number);
        isUpper = false;
    }
    for (char c : text) out += char16_t(isUpper ? c - 'a' + 'A' : c);
}

} // namespace OpenDocument

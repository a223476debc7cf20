// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/NumberFormat.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr int64_t kMostRoman = 3999, kMostRepeats = 30, kMostWords = 99, kMostCounting = 9999;
constexpr int64_t kLeastTens = 20;

constexpr std::u16string_view kOrdinalEnds[] = {u"th", u"st", u"nd", u"rd"};
constexpr std::u16string_view kSmall[] = {u"Zero",    u"One",     u"Two",       u"Three",    u"Four",
                                          u"Five",    u"Six",     u"Seven",     u"Eight",    u"Nine",
                                          u"Ten",     u"Eleven",  u"Twelve",    u"Thirteen", u"Fourteen",
                                          u"Fifteen", u"Sixteen", u"Seventeen", u"Eighteen", u"Nineteen"};
constexpr std::u16string_view kSmallOrdinals[] = {
    u"Zeroth",     u"First",     u"Second",    u"Third",       u"Fourth",     u"Fifth",     u"Sixth",
    u"Seventh",    u"Eighth",    u"Ninth",     u"Tenth",       u"Eleventh",   u"Twelfth",   u"Thirteenth",
    u"Fourteenth", u"Fifteenth", u"Sixteenth", u"Seventeenth", u"Eighteenth", u"Nineteenth"};
constexpr std::u16string_view kTens[] = {u"",      u"",      u"Twenty",  u"Thirty", u"Forty",
                                         u"Fifty", u"Sixty", u"Seventy", u"Eighty", u"Ninety"};

void appendDecimal(std::u16string& out, int64_t number) {
    char digits[20];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void appendRoman(std::u16string& out, int64_t number, char16_t firstLetter) {
    struct Numeral {
        int value;
        std::string_view letters;
    };
    constexpr Numeral kNumerals[] = {{1000, "m"}, {900, "cm"}, {500, "d"}, {400, "cd"}, {100, "c"},
                                     {90, "xc"},  {50, "l"},   {40, "xl"}, {10, "x"},   {9, "ix"},
                                     {5, "v"},    {4, "iv"},   {1, "i"}};
    for (const Numeral& numeral : kNumerals) {
        for (; number >= numeral.value; number -= numeral.value) {
            for (char letter : numeral.letters) out.push_back(char16_t(firstLetter + (letter - 'a')));
        }
    }
}

void appendLetters(std::u16string& out, int64_t number, std::u16string_view alphabet) {
    const auto count = int64_t(alphabet.size());
    const size_t first = out.size();
    for (; number > 0; number = (number - 1) / count) out.push_back(alphabet[size_t((number - 1) % count)]);
    std::reverse(out.begin() + std::ptrdiff_t(first), out.end());
}

void appendDigits(std::u16string& out, int64_t number, std::u16string_view digits) {
    const size_t first = out.size();
    appendDecimal(out, number);
    for (size_t i = first; i < out.size(); ++i) out[i] = digits[size_t(out[i] - u'0')];
}

std::u16string_view ordinalEnd(int64_t number) {
    const int64_t last = number % 10;
    const bool isTeen = number / 10 % 10 == 1;
    return kOrdinalEnds[isTeen || last < 0 || last > 3 ? 0 : last];
}

// Only the first word has a capital.
void appendWords(std::u16string& out, int64_t number, bool isOrdinal) {
    const std::u16string_view* small = isOrdinal ? kSmallOrdinals : kSmall;
    if (number < kLeastTens) {
        out += small[number];
        return;
    }
    std::u16string_view tens = kTens[number / 10];
    if (number % 10 != 0) {
        out.append(tens).push_back(u'-');
        std::u16string_view unit = small[number % 10];
        out.push_back(char16_t(unit[0] - u'A' + u'a'));
        out += unit.substr(1);
    } else if (isOrdinal) {
        out.append(tens.substr(0, tens.size() - 1)).append(u"ieth");
    } else {
        out += tens;
    }
}

// Chinese numerals: 十一, 二十, 一百○五.
void appendCounting(std::u16string& out, int64_t number, std::u16string_view digits) {
    constexpr std::u16string_view kHan = u"千百十", kHangul = u"천백십";
    std::u16string_view units = digits[0] == u'영' ? kHangul : kHan;
    bool zeroWaits = false, hasBegun = false;
    for (int unit = 1000, place = 0; unit > 0; unit /= 10, ++place) {
        const int64_t digit = number / unit % 10;
        if (digit == 0) {
            zeroWaits = hasBegun;
            continue;
        }
        if (zeroWaits && units == kHan) out.push_back(digits[0]);
        bool isBareTen = digit == 1 && unit == 10 && !hasBegun;
        if (!isBareTen) out.push_back(digits[size_t(digit)]);
        if (unit > 1) out.push_back(units[size_t(place)]);
        hasBegun = true;
        zeroWaits = false;
    }
}

// The largest number that the format has a form of its own for.
int64_t largestNumber(const NumberFormat& format) {
    using Kind = NumberFormat::Kind;
    switch (format.kind) {
    case Kind::lowerRoman:
    case Kind::upperRoman: return kMostRoman;
    case Kind::cardinalWords:
    case Kind::ordinalWords: return kMostWords;
    case Kind::series: return int64_t(format.symbols.size()) * kMostRepeats;
    case Kind::table: return int64_t(format.symbols.size());
    case Kind::counting: return kMostCounting;
    default: return INT64_MAX;
    }
}

// Of a number from 1 to the largest.
void appendForm(std::u16string& out, int64_t number, const NumberFormat& format) {
    using Kind = NumberFormat::Kind;
    const std::u16string_view symbols = format.symbols;
    const auto index = size_t(number - 1);
    switch (format.kind) {
    case Kind::lowerRoman: return appendRoman(out, number, u'a');
    case Kind::upperRoman: return appendRoman(out, number, u'A');
    case Kind::lowerLetters: return appendLetters(out, number, kLowerLatin);
    case Kind::upperLetters: return appendLetters(out, number, kUpperLatin);
    case Kind::cardinalWords: return appendWords(out, number, false);
    case Kind::ordinalWords: return appendWords(out, number, true);
    case Kind::digits: return appendDigits(out, number, symbols);
    case Kind::series: out.append(index / symbols.size() + 1, symbols[index % symbols.size()]); return;
    case Kind::table: out.push_back(symbols[index]); return;
    case Kind::counting: return appendCounting(out, number, symbols);
    default: return appendDecimal(out, number);
    }
}

} // namespace

void appendNumber(std::u16string& out, int64_t number, NumberFormat format) {
    using Kind = NumberFormat::Kind;
    if (format.kind == Kind::none) return;
    if (format.kind == Kind::padded && number >= 0 && number < 10) out.push_back(u'0');
    number > 0 && number <= largestNumber(format) ? appendForm(out, number, format)
                                                  : appendDecimal(out, number);
    if (format.kind == Kind::ordinal) out += ordinalEnd(number);
}

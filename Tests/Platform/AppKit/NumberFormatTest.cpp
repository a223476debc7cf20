// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/NumberFormat.h"

#include <gtest/gtest.h>

namespace {

using Kind = NumberFormat::Kind;

struct Case {
    NumberFormat format;
    int64_t number;
    std::u16string_view text;
};

void expectTexts(std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
        std::u16string text = u"(";
        appendNumber(text, c.number, c.format);
        EXPECT_EQ(text, u"(" + std::u16string(c.text)) << int(c.format.kind) << " " << c.number;
    }
}

TEST(NumberFormat, WritesDigits) {
    expectTexts({{{}, 7, u"7"},
                 {{}, -7, u"-7"},
                 {{}, INT64_MIN, u"-9223372036854775808"},
                 {{Kind::none}, 7, u""},
                 {{Kind::padded}, 0, u"00"},
                 {{Kind::padded}, 9, u"09"},
                 {{Kind::padded}, 10, u"10"},
                 {{Kind::padded}, -9, u"-9"},
                 {{Kind::ordinal}, 1, u"1st"},
                 {{Kind::ordinal}, 22, u"22nd"},
                 {{Kind::ordinal}, 113, u"113th"},
                 {{Kind::ordinal}, -1, u"-1th"},
                 {{Kind::digits, u"०१२३४५६७८९"}, 90, u"९०"},
                 {{Kind::digits, u"०१२३४५६७८९"}, -1, u"-1"}});
}

TEST(NumberFormat, WritesRomanNumeralsUpTo3999) {
    expectTexts({{{Kind::lowerRoman}, 4, u"iv"},
                 {{Kind::upperRoman}, 1999, u"MCMXCIX"},
                 {{Kind::lowerRoman}, 3888, u"mmmdccclxxxviii"},
                 {{Kind::upperRoman}, 3999, u"MMMCMXCIX"},
                 {{Kind::upperRoman}, 4000, u"4000"},
                 {{Kind::lowerRoman}, 0, u"0"},
                 {{Kind::lowerRoman}, -1, u"-1"}});
}

TEST(NumberFormat, CountsOnInTwoLettersOrRepeatsThem) {
    expectTexts({{{Kind::lowerLetters}, 1, u"a"},
                 {{Kind::upperLetters}, 26, u"Z"},
                 {{Kind::lowerLetters}, 27, u"aa"},
                 {{Kind::lowerLetters}, 28, u"ab"},
                 {{Kind::upperLetters}, 703, u"AAA"},
                 {{Kind::lowerLetters}, 0, u"0"},
                 {{Kind::upperLetters}, -1, u"-1"},
                 {{Kind::series, kLowerLatin}, 28, u"bb"},
                 {{Kind::series, kUpperLatin}, 53, u"AAA"},
                 {{Kind::series, kLowerLatin}, 780, u"zzzzzzzzzzzzzzzzzzzzzzzzzzzzzz"},
                 {{Kind::series, kLowerLatin}, 781, u"781"},
                 {{Kind::series, kLowerLatin}, INT64_MAX, u"9223372036854775807"},
                 {{Kind::series, kLowerLatin}, 0, u"0"}});
}

TEST(NumberFormat, WritesWordsAndTablesAsFarAsTheyGo) {
    expectTexts({{{Kind::cardinalWords}, 99, u"Ninety-nine"},
                 {{Kind::cardinalWords}, 100, u"100"},
                 {{Kind::ordinalWords}, 20, u"Twentieth"},
                 {{Kind::table, u"甲乙丙"}, 3, u"丙"},
                 {{Kind::table, u"甲乙丙"}, 4, u"4"},
                 {{Kind::table, u"甲乙丙"}, 0, u"0"},
                 {{Kind::counting, u"○一二三四五六七八九"}, 9999, u"九千九百九十九"},
                 {{Kind::counting, u"○一二三四五六七八九"}, 10000, u"10000"}});
}

} // namespace

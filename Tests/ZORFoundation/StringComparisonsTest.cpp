// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORComparisons.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using Text = std::u16string;
using namespace std::string_literals;

TEST(Containing, ComparesUnits) {
    EXPECT_TRUE(zorContainsString(u"abcd", u"bc"));
    EXPECT_TRUE(zorContainsString(u"abcd", u"abcd"));
    EXPECT_FALSE(zorContainsString(u"abcd", u"BC"));
    EXPECT_TRUE(zorContainsString(u"e\u0301", u"e"));
    EXPECT_FALSE(zorContainsString(u"\u00E9", u"e\u0301"));
    EXPECT_FALSE(zorContainsString(u"abcd", u""));
    EXPECT_FALSE(zorContainsString(u"", u"a"));
    EXPECT_TRUE(zorContainsString(u"a\0b"s, u"\0"s));
}

TEST(ContainingWithoutCase, FollowsUnicode) {
    EXPECT_TRUE(zorCaseInsensitiveContainsString(u"xABCx", u"abc"));
    EXPECT_FALSE(zorCaseInsensitiveContainsString(u"xABCx", u"abd"));
    EXPECT_TRUE(zorCaseInsensitiveContainsString(u"Das ÜBERMUT", u"übermut"));
    EXPECT_TRUE(zorCaseInsensitiveContainsString(u"E\u0301TE\u0301", u"\u00E9t\u00E9"));
    EXPECT_FALSE(zorCaseInsensitiveContainsString(u"\u00C9", u"e"));
    EXPECT_FALSE(zorCaseInsensitiveContainsString(u"E\u0301", u"e"));
    EXPECT_FALSE(zorCaseInsensitiveContainsString(u"STRASSE", u"stra\u00DFe"));
    EXPECT_TRUE(zorCaseInsensitiveContainsString(u"\U00010400x", u"\U00010428"));
    EXPECT_FALSE(zorCaseInsensitiveContainsString(u"\u00E9", u""));
}

TEST(ContainingWithoutCase, SearchesLongTextsInPieces) {
    const Text filling(70'000, u'\u4E00');
    for (size_t shift = 0; shift < 12; ++shift) {
        const Text text = Text(shift, u'x') + filling.substr(0, 65'530) + u"ÄÖÜ" + filling;
        EXPECT_TRUE(zorCaseInsensitiveContainsString(text, u"äöü")) << shift;
        const NSRange found = rangeOfString(text, u"äöü", NSCaseInsensitiveSearch);
        EXPECT_EQ(found, (NSRange{shift + 65'530, 3}));
    }
    EXPECT_FALSE(zorCaseInsensitiveContainsString(filling, u"ä"));
}

TEST(ContainingWithoutCase, TakesLoneSurrogatesAndNul) {
    EXPECT_TRUE(zorCaseInsensitiveContainsString(Text({u'A', 0xD800, 0, u'B'}), Text({0xD800, 0, u'b'})));
    EXPECT_FALSE(zorCaseInsensitiveContainsString(u"\U0001F600", Text(1, 0xD83D)));
}

TEST(PrefixWithoutCase, IsAnchored) {
    EXPECT_TRUE(zorHasCaseInsensitivePrefix(u"HTTP://x", u"http:"));
    EXPECT_FALSE(zorHasCaseInsensitivePrefix(u"xHTTP:", u"http:"));
    EXPECT_FALSE(zorHasCaseInsensitivePrefix(u"htt", u"http:"));
    EXPECT_TRUE(zorHasCaseInsensitivePrefix(u"ÉTÉ", u"e\u0301"));
    EXPECT_FALSE(zorHasCaseInsensitivePrefix(u"e\u0301", u"E"));
    EXPECT_FALSE(zorHasCaseInsensitivePrefix(u"été", u"ete"));
    EXPECT_FALSE(zorHasCaseInsensitivePrefix(u"a", u""));
}

TEST(DiacriticPrefix, LeavesAccentsAndWidthOutButNotCase) {
    EXPECT_TRUE(zorHasDiacriticPrefix(u"Éclair", u"Ecl"));
    EXPECT_TRUE(zorHasDiacriticPrefix(u"Eclair", u"É"));
    EXPECT_TRUE(zorHasDiacriticPrefix(u"E\u0301clair", u"E"));
    EXPECT_TRUE(zorHasDiacriticPrefix(u"\uFF21\uFF22c", u"ABc"));
    EXPECT_TRUE(zorHasDiacriticPrefix(u"\uFF76", u"\u30AB")); // half-width katakana
    EXPECT_FALSE(zorHasDiacriticPrefix(u"éclair", u"Ecl"));
    EXPECT_FALSE(zorHasDiacriticPrefix(u"xÉ", u"E"));
    EXPECT_TRUE(zorHasDiacriticPrefix(u"plain", u"pl"));
    EXPECT_FALSE(zorHasDiacriticPrefix(u"plain", u"Pl"));
    EXPECT_FALSE(zorHasDiacriticPrefix(u"a", u"\u0301"));
}

TEST(DiacriticInsensitivePrefix, LeavesCaseOutToo) {
    EXPECT_TRUE(zorHasDiacriticInsensitivePrefix(u"éclair", u"ECL"));
    EXPECT_TRUE(zorHasDiacriticInsensitivePrefix(u"\uFF21\u0301b", u"áB"));
    EXPECT_FALSE(zorHasDiacriticInsensitivePrefix(u"éclair", u"ECX"));
    EXPECT_FALSE(zorHasDiacriticInsensitivePrefix(u"ø", u"o")); // a letter of its own
}

TEST(Characters, AreFoundAndCounted) {
    EXPECT_TRUE(zorHasCharacter(u"abc", u'c', 2));
    EXPECT_FALSE(zorHasCharacter(u"abc", u'c', 1));
    EXPECT_FALSE(zorHasCharacter(u"abc", u'c', 3));
    EXPECT_FALSE(zorHasCharacter(u"abc", 0, SIZE_MAX));
    EXPECT_TRUE(zorContainsCharacter(Text(100, u'x') + u"y", u'y'));
    EXPECT_FALSE(zorContainsCharacter(Text(100, u'x'), u'y'));
    EXPECT_FALSE(zorContainsCharacter(u"", 0));
    EXPECT_TRUE(zorContainsCharacter(u"\U0001F600", 0xDE00));
    EXPECT_EQ(zorCountOccurrencesOfCharacter(u"banana", u'a'), 3u);
    EXPECT_EQ(zorCountOccurrencesOfCharacter(u"", u'a'), 0u);
}

TEST(LengthOrder, CountsUnits) {
    EXPECT_EQ(zorCompareLength(u"b", u"aa"), NSOrderedAscending);
    EXPECT_EQ(zorCompareLength(u"bb", u"aa"), NSOrderedSame);
    EXPECT_EQ(zorCompareLength(u"\U0001F600", u"a"), NSOrderedDescending);
}

class DisplayOrder : public testing::Test {
protected:
    void SetUp() override { useLocale("en_US.UTF-8"); }
    void TearDown() override { unsetenv("LC_ALL"); }
    static void useLocale(const char* locale) { setenv("LC_ALL", locale, 1); }

    static void expectAscending(const NSString& a, const NSString& b) {
        EXPECT_EQ(zorCompareForDisplay(a, b), NSOrderedAscending) << a.utf8() << " < " << b.utf8();
        EXPECT_EQ(zorCompareForDisplay(b, a), NSOrderedDescending) << b.utf8() << " > " << a.utf8();
    }
    static void expectSame(const NSString& a, const NSString& b) {
        EXPECT_EQ(zorCompareForDisplay(a, b), NSOrderedSame) << a.utf8() << " = " << b.utf8();
    }
};

TEST_F(DisplayOrder, LeavesCaseOut) {
    expectSame(u"ABC", u"abc");
    expectSame(u"Äb", u"äB");
    expectSame(u"", u"");
    expectAscending(u"a", u"B");
    expectAscending(u"", u"a");
}

TEST_F(DisplayOrder, TakesDigitsAsNumbers) {
    expectAscending(u"file2", u"File10");
    expectAscending(u"file 2.txt", u"file 10.txt");
    expectSame(u"a007", u"A7");
    expectAscending(u"9", u"a");
    expectAscending(u"99999999999999999999", u"100000000000000000000");
}

TEST_F(DisplayOrder, PutsAccentsNextToTheirLetters) {
    expectAscending(u"e", u"é");
    expectAscending(u"é", u"f");
    expectAscending(u"Zebra", u"Ω");
}

TEST_F(DisplayOrder, FollowsTheLanguage) {
    expectAscending(u"ä", u"z");
    useLocale("sv_SE.UTF-8");
    expectAscending(u"z", u"ä");
    useLocale("et_EE.UTF-8"); // Estonian has z before t
    expectAscending(u"z", u"t");
    useLocale("C");
    expectAscending(u"a", u"B");
    expectAscending(u"ä", u"z");
}

TEST_F(DisplayOrder, OfPlainTextIsThatOfTheLibrary) {
    // "ä" behind both sends the same texts to the library.
    const char16_t alphabet[] = u"01279abyzABYZ";
    uint32_t random = 1;
    const auto text = [&] {
        Text out;
        for (size_t length = random % 7; length > 0; --length) {
            random = random * 1664525 + 1013904223;
            out.push_back(alphabet[(random >> 16) % 13]);
        }
        random = random * 1664525 + 1013904223;
        return out;
    };
    for (int i = 0; i < 5000; ++i) {
        const Text a = text(), b = text();
        ASSERT_EQ(zorCompareForDisplay(a, b), zorCompareForDisplay(u"ä" + a, u"ä" + b))
            << NSString(a).utf8() << ", " << NSString(b).utf8();
    }
}

TEST_F(DisplayOrder, TakesAnyUnits) {
    const Text odd{u'a', 0xD800, 0};
    EXPECT_EQ(zorCompareForDisplay(odd, odd), NSOrderedSame);
    EXPECT_EQ(zorCompareForDisplay(odd, u"b"), NSOrderedAscending);
}

} // namespace

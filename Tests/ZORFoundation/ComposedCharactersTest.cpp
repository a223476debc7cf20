// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

#include <gtest/gtest.h>

namespace {

constexpr const char16_t* kFamily = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"; // one character of 8 units

NSRange widened(const char16_t* text, uint64_t location, uint64_t length) {
    return zorRangeOfComposedCharacterSequencesInRange(text, {location, length});
}

TEST(ComposedRange, TakesInWholeCharacters) {
    EXPECT_EQ(widened(u"abc", 1, 1), (NSRange{1, 1}));
    EXPECT_EQ(widened(u"ae\u0301b", 1, 1), (NSRange{1, 2}));
    EXPECT_EQ(widened(u"ae\u0301b", 2, 2), (NSRange{1, 3}));
    EXPECT_EQ(widened(u"a\U0001F600b", 2, 1), (NSRange{1, 2}));
    EXPECT_EQ(widened(kFamily, 3, 1), (NSRange{0, 8}));
    EXPECT_EQ(widened(u"\u1100\u1161\u11A8", 1, 1), (NSRange{0, 3}));
    EXPECT_EQ(widened(u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7", 5, 1), (NSRange{4, 4}));
}

TEST(ComposedRange, PartsCarriageReturnAndLineFeed) {
    EXPECT_EQ(widened(u"\r\n", 0, 1), (NSRange{0, 1}));
    EXPECT_EQ(widened(u"\r\n", 1, 1), (NSRange{1, 1}));
}

TEST(ComposedRange, TakesLoneSurrogatesAndNulAsCharacters) {
    const std::u16string text{u'a', 0xD800, 0, 0xDC00, u'b'};
    for (uint64_t i = 0; i < text.size(); ++i) {
        EXPECT_EQ(zorRangeOfComposedCharacterSequencesInRange(text, {i, 1}), (NSRange{i, 1})) << i;
    }
}

TEST(ComposedRange, OutsideTheTextRaises) {
    const NSRange outside[] = {{3, 0}, {3, 1}, {2, 2}, {0, 4}, {1, UINT64_MAX}, {UINT64_MAX, 2}};
    for (NSRange range : outside) {
        try {
            (void)zorRangeOfComposedCharacterSequencesInRange(u"abc", range);
            ADD_FAILURE() << range.location << ", " << range.length;
        } catch (const NSException& exception) {
            EXPECT_EQ(exception.name().utf8(), "NSRangeException");
            EXPECT_EQ(exception.reason(), u"Invalid range " + NSStringFromRange(range) + u".");
        }
    }
    EXPECT_THROW((void)zorRangeOfComposedCharacterSequencesInRange(u"", {0, 0}), NSException);
    EXPECT_EQ(widened(u"abc", 1, 0), (NSRange{1, 0}));
}

TEST(ComposedIndex, CutsBeforeTheCharacterThatHasIt) {
    EXPECT_EQ(zorSubstringToComposedIndex(u"abc", 2).text(), u"ab");
    EXPECT_EQ(zorSubstringToComposedIndex(u"ae\u0301b", 2).text(), u"a");
    EXPECT_EQ(zorSubstringToComposedIndex(u"a\U0001F600", 2).text(), u"a");
    EXPECT_EQ(zorSubstringToComposedIndex(kFamily, 7).text(), u"");
    EXPECT_EQ(zorSubstringToComposedIndex(u"abc", 3).text(), u"abc");
    EXPECT_EQ(zorSubstringToComposedIndex(u"abc", SIZE_MAX).text(), u"abc");
    EXPECT_EQ(zorSubstringToComposedIndex(u"", 0).text(), u"");
}

TEST(AddingASuffix, TrimsTheStemOnly) {
    EXPECT_EQ(zorStringByAddingSuffix(u"document", u".pdf", 10).text(), u"docume.pdf");
    EXPECT_EQ(zorStringByAddingSuffix(u"document", u".pdf", 12).text(), u"document.pdf");
    EXPECT_EQ(zorStringByAddingSuffix(u"document", u".pdf", UINT64_MAX).text(), u"document.pdf");
    EXPECT_EQ(zorStringByAddingSuffix(u"document", u".pdf", 4).text(), u".pdf");
    EXPECT_EQ(zorStringByAddingSuffix(u"document", u"", 0).text(), u"");
}

TEST(AddingASuffix, NeverPartsAComposedCharacter) {
    EXPECT_EQ(zorStringByAddingSuffix(u"cafe\u0301s", u".pdf", 8).text(), u"caf.pdf");
    EXPECT_EQ(zorStringByAddingSuffix(u"a\U0001F600b", u".pdf", 6).text(), u"a.pdf");
}

TEST(AddingASuffixDeathTest, LongerThanTheTotalStopsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH((void)zorStringByAddingSuffix(u"document", u".pdf", 3),
                 "NSString.ZORBasics:[0-9]+ -zorStringByAddingSuffix:trimmingStemToTotal:: Assertion Failed: "
                 "suffix: '\\.pdf' length: 3\n");
    EXPECT_DEATH((void)zorStringByAddingSuffix(u"document", u".pdf", 3),
                 "Assertion failed: \\(\\(length >= \\[suffix length\\]\\)\\), function "
                 "-\\[NSString\\(ZORTextMunging\\) zorStringByAddingSuffix:trimmingStemToTotal:\\], file "
                 "ZORFoundation/Source/NSString.ZORBasics, line [0-9]+\\.\n");
}

} // namespace

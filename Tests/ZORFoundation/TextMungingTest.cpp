// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNumber.h"
#include "ZORFoundation/Source/NSString+ZORBasics.h"
#include "ZORFoundation/Source/ZORException.h"

#include <gtest/gtest.h>

namespace {

using Text = std::u16string;
using namespace std::string_literals;

NSString s(const char16_t* text) { return text; }

Text repeated(const Text& text, size_t count) {
    Text out;
    while (count-- > 0) out += text;
    return out;
}

TEST(TrimmingNulls, OfALongTextFindsEveryOne) {
    for (size_t length : {15, 16, 17, 2047, 2048, 2049, 5000}) {
        for (size_t place : {size_t(0), length / 2, length - 1}) {
            Text text(length, u'x'), expected(length - 1, u'x');
            text[place] = 0;
            EXPECT_EQ(zorStringByTrimmingNulls(text).text(), expected) << length << ", " << place;
        }
    }
    EXPECT_EQ(zorStringByTrimmingNulls(repeated(u"a\0\xD83D\0\xDE00"s, 3000)).text(),
              repeated(u"a\xD83D\xDE00"s, 3000));
}

TEST(TrimmingNulls, OfATextWithoutAnyIsTheText) {
    const NSString text = u"plain";
    EXPECT_EQ(zorStringByTrimmingNulls(text).body(), text.body());
}

std::vector<Text> lines(const Text& text) {
    std::vector<Text> found;
    for (const NSObject& line : zorComponentsSeparatedByLineSeparators(text))
        found.push_back(as<NSString>(line).text());
    return found;
}

TEST(Lines, EndAtEveryTerminator) {
    using Lines = std::vector<Text>;
    EXPECT_EQ(lines(u""), Lines{});
    EXPECT_EQ(lines(u"a"), Lines{u"a"});
    EXPECT_EQ(lines(u"a\r\nb\n"), (Lines{u"a", u"b"}));
    EXPECT_EQ(lines(u"a\nb\rc\r\nd\u0085e\u2028f\u2029g"), (Lines{u"a", u"b", u"c", u"d", u"e", u"f", u"g"}));
    EXPECT_EQ(lines(u"\n"), Lines{u""});
    EXPECT_EQ(lines(u"\n\r"), (Lines{u"", u""}));
    EXPECT_EQ(lines(u"\r\r\n\n"), (Lines{u"", u"", u""}));
    EXPECT_EQ(lines(u"a\n\nb"), (Lines{u"a", u"", u"b"}));
    EXPECT_EQ(lines(u"a\vb\fc"), Lines{u"a\vb\fc"});
    EXPECT_EQ(lines(u"a\0b\n\xD800"s), (Lines{u"a\0b"s, Text(1, 0xD800)}));
}

TEST(Lines, OfALongTextAreAllFound) {
    const Text line(41, u'x');
    EXPECT_EQ(lines(repeated(line + u"\u2029", 1000)), std::vector<Text>(1000, line));
}

TEST(LineBreaks, BecomeLineFeeds) {
    EXPECT_EQ(zorStringByNormalizingLineBreaks(u"a\r\nb\rc\nd").text(), u"a\nb\nc\nd");
    EXPECT_EQ(zorStringByNormalizingLineBreaks(u"\r\r\n\r").text(), u"\n\n\n");
    EXPECT_EQ(zorStringByNormalizingLineBreaks(u"\n\r").text(), u"\n\n");
    EXPECT_EQ(zorStringByNormalizingLineBreaks(u"").text(), u"");
    const NSString plain = u"a\n\u2028b\n";
    EXPECT_EQ(zorStringByNormalizingLineBreaks(plain).body(), plain.body());
    const Text line(37, u'x');
    EXPECT_EQ(zorStringByNormalizingLineBreaks(repeated(line + u"\r\n", 100)).text(),
              repeated(line + u"\n", 100));
}

TEST(Stripping, TakesWhiteSpaceAndLineEndsOffBothEnds) {
    EXPECT_EQ(zorStringByStripping(u" \t\r\n a b \u00A0\u2028\u3000\u0085").text(), u"a b");
    EXPECT_EQ(zorStringByStripping(u" \n").text(), u"");
    EXPECT_EQ(zorStringByStripping(u"").text(), u"");
    EXPECT_EQ(zorStringByStripping(u"\0 a"s).text(), u"\0 a"s);
}

TEST(KeepingCharacters, KeepsTheirOrder) {
    const auto letters = NSCharacterSet::characterSetWithRange(u'a', 26);
    EXPECT_EQ(zorStringByKeepingCharactersInSet(u"a1b-2c", letters).text(), u"abc");
    EXPECT_EQ(zorStringByKeepingCharactersInSet(u"a1b-2c", letters.invertedSet()).text(), u"1-2");
    EXPECT_TRUE(zorStringByKeepingCharactersInSet(u"", letters));
    EXPECT_EQ(zorStringByKeepingCharactersInSet(u"", letters).text(), u"");
}

TEST(MatchingACharacterSet, HoldsWhenEveryUnitDoes) {
    const auto set = NSCharacterSet::characterSetWithCharactersInString(u"ab\U0001F600");
    EXPECT_TRUE(zorMatchesCharacterSet(u"abba", set));
    EXPECT_FALSE(zorMatchesCharacterSet(u"abc", set));
    EXPECT_FALSE(zorMatchesCharacterSet(u"\U0001F600", set)); // sets hold units
    EXPECT_TRUE(zorMatchesCharacterSet(u"", set));
}

TEST(TruncatingTheMiddle, KeepsBothEnds) {
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"abcdef", 3).text(), u"abcdef");
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"abcdefg", 4).text(), u"abcdefg");
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"abcdefg", SIZE_MAX).text(), u"abcdefg");
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"abcdefghij", 3).text(), u"abc\u2026hij");
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"abcdefg", 3).text(), u"abc\u2026efg");
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"abc", 0).text(), u"\u2026");
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"", 0).text(), u"");
}

TEST(TruncatingTheMiddle, NeverPartsAComposedCharacter) {
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"ae\u0301bcde\u0301fg", 3).text(),
              u"ae\u0301\u2026fg");
    EXPECT_EQ(zorStringByTruncatingMiddleAfterComposedLength(u"a\U0001F600cdef\U0001F600g", 2).text(),
              u"a\u2026g");
}

TEST(Chopping, TakesTheLastUnitsOff) {
    EXPECT_EQ(zorStringByChopping(u"abc").text(), u"ab");
    EXPECT_EQ(zorStringByChopping(u"a").text(), u"");
    EXPECT_EQ(zorStringByChopping(u"").text(), u"");
    EXPECT_EQ(zorStringByChopping(u"\U0001F600").text(), Text(1, 0xD83D));
    EXPECT_EQ(zorStringByChoppingComposedCharacter(u"abc").text(), u"a");
    EXPECT_EQ(zorStringByChoppingComposedCharacter(u"ab").text(), u"");
    EXPECT_EQ(zorStringByChoppingComposedCharacter(u"a").text(), u"");
    EXPECT_EQ(zorStringByChoppingComposedCharacter(u"").text(), u"");
    EXPECT_EQ(zorStringByChoppingComposedCharacter(u"ab\U0001F600").text(), u"ab");
}

TEST(ExpandingKeys, GoesInTheDictionarysOrder) {
    const NSDictionary values{{s(u"$a"), s(u"<$b>")}, {s(u"$b"), s(u"B")}};
    EXPECT_EQ(zorStringByExpandingKeysInDictionary(u"$b $a $c", values).text(), u"B <B> $c");
    const NSDictionary backwards{{s(u"$b"), s(u"B")}, {s(u"$a"), s(u"<$b>")}};
    EXPECT_EQ(zorStringByExpandingKeysInDictionary(u"$b $a $c", backwards).text(), u"B <$b> $c");
    const NSString text = u"$a";
    EXPECT_EQ(zorStringByExpandingKeysInDictionary(text, NSDictionary::dictionary()).body(), text.body());
}

TEST(Replacing, IsLiteralAndGoesLeftToRight) {
    EXPECT_EQ(zorStringByReplacingString(u"aaaa b", u"aa", u"xyz").text(), u"xyzxyz b");
    EXPECT_EQ(zorStringByReplacingString(u"aaa", u"aa", u"a").text(), u"aa");
    EXPECT_EQ(zorStringByReplacingString(u"e\u0301", u"e", u"a").text(), u"a\u0301");
    EXPECT_EQ(zorStringByReplacingString(u"\u00E9", u"e\u0301", u"a").text(), u"\u00E9");
    EXPECT_EQ(zorStringByReplacingString(u"a\0b"s, u"\0"s, u"").text(), u"ab");
    EXPECT_EQ(zorStringByReplacingString(u"abc", u"", u"x").text(), u"abc");
    EXPECT_EQ(zorStringByReplacingString(u"abc", u"d", u"x").text(), u"abc");
    EXPECT_EQ(zorStringByReplacingFirstOccurrenceOfString(u"abab", u"ab", u"x").text(), u"xab");
    EXPECT_EQ(zorStringByReplacingFirstOccurrenceOfString(u"abab", u"ba", u"").text(), u"ab");
    EXPECT_EQ(zorStringByReplacingFirstOccurrenceOfString(u"abab", u"c", u"x").text(), u"abab");
}

TEST(Joining, PutsTheSeparatorBetween) {
    EXPECT_EQ(zorJoin(u", ", NSArray{s(u"a"), NSNumber::withInt(2), s(u"")}).text(), u"a, 2, ");
    EXPECT_EQ(zorJoin(u", ", NSArray{}).text(), u"");
    EXPECT_EQ(zorJoin(u"", NSArray{s(u"a"), s(u"b")}).text(), u"ab");
}

TEST(EnsuringASuffix, AddsItOnce) {
    EXPECT_EQ(zorStringByEnsuringSuffix(u"a", u".pdf").text(), u"a.pdf");
    EXPECT_EQ(zorStringByEnsuringSuffix(u"a.pdf", u".pdf").text(), u"a.pdf");
    EXPECT_EQ(zorStringByEnsuringSuffix(u"", u".pdf").text(), u".pdf");
    EXPECT_EQ(zorStringByEnsuringSuffix(u"a", u"").text(), u"a");
}

TEST(Chunking, PutsTheSeparatorBeforeEveryMultiple) {
    EXPECT_EQ(zorStringByChunking(u"abcdefg", 3, u"-").text(), u"abc-def-g");
    EXPECT_EQ(zorStringByChunking(u"abcdef", 3, u"--").text(), u"abc--def");
    EXPECT_EQ(zorStringByChunking(u"abc", 1, u" ").text(), u"a b c");
    EXPECT_EQ(zorStringByChunking(u"abc", UINT_MAX, u"-").text(), u"abc");
    EXPECT_TRUE(zorStringByChunking(u"", 3, u"-"));
    EXPECT_EQ(zorStringByChunking(u"", 3, u"-").text(), u"");
}

TEST(Chunking, ByNothingIsAProgrammingError) {
    EXPECT_EQ(zorStringByChunking(u"a", 0, u"-").text(), u"a");
    EXPECT_EQ(zorStringByChunking(u"", 0, u"-").text(), u"");
    testing::internal::CaptureStderr();
    EXPECT_THROW((void)zorStringByChunking(u"ab", 0, u"-"), ZORException);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Precondition Failed: length >= 1"),
              std::string::npos);
}

TEST(Substrings, StopAtTheEnds) {
    EXPECT_EQ(zorSubstringToIndex(u"abc", 2).text(), u"ab");
    EXPECT_EQ(zorSubstringToIndex(u"abc", 3).text(), u"abc");
    EXPECT_EQ(zorSubstringToIndex(u"abc", SIZE_MAX).text(), u"abc");
    EXPECT_EQ(zorSubstringToIndex(u"abc", 0).text(), u"");
    EXPECT_EQ(zorSubstringFromIndex(u"abc", 2).text(), u"c");
    EXPECT_EQ(zorSubstringFromIndex(u"abc", 3).text(), u"");
    EXPECT_EQ(zorSubstringFromIndex(u"abc", SIZE_MAX).text(), u"");
    EXPECT_EQ(zorSubstringToIndex(u"\U0001F600", 1).text(), Text(1, 0xD83D));
}

TEST(Substrings, EndAndBeginAtTheFirstOccurrence) {
    EXPECT_EQ(zorSubstringToString(u"key: value: x", u": ").text(), u"key");
    EXPECT_EQ(zorSubstringFromString(u"key: value: x", u": ").text(), u"value: x");
    EXPECT_EQ(zorSubstringToString(u"abc", u"d").text(), u"");
    EXPECT_EQ(zorSubstringFromString(u"abc", u"d").text(), u"");
    EXPECT_EQ(zorSubstringFromString(u"abc", u"").text(), u"");
    EXPECT_EQ(zorSubstringFromString(u"abc", u"c").text(), u"");
}

TEST(Substrings, TakeLettersHoweverComposed) {
    EXPECT_EQ(zorSubstringFromString(u"cafe\u0301 x", u"\u00E9").text(), u" x");
    EXPECT_EQ(zorSubstringToString(u"e\u0301e!", u"e").text(), u"e\u0301");
}

TEST(SpaceComponents, AreTheFirstAndTheLast) {
    EXPECT_EQ(zorFirstSpaceComponent(u"one two three").text(), u"one");
    EXPECT_EQ(zorLastSpaceComponent(u"one two three").text(), u"three");
    EXPECT_EQ(zorFirstSpaceComponent(u" one").text(), u"");
    EXPECT_EQ(zorLastSpaceComponent(u"one ").text(), u"");
    EXPECT_EQ(zorFirstSpaceComponent(u"one\ttwo").text(), u"one\ttwo");
    EXPECT_EQ(zorLastSpaceComponent(u"one\u00A0two").text(), u"one\u00A0two");
    EXPECT_EQ(zorLastSpaceComponent(u"").text(), u"");
}

} // namespace

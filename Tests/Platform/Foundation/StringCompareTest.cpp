// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSStringCompare.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSStringComposition.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <unistd.h>

namespace {

using Text = std::u16string;

NSComparisonResult compare(const Text& a, const Text& b) {
    const NSComparisonResult forward = caseInsensitiveCompare(a, b), backward = caseInsensitiveCompare(b, a);
    EXPECT_EQ(forward, -backward) << NSString(a).utf8() << ", " << NSString(b).utf8();
    return forward;
}

TEST(CaseInsensitiveOrder, IsThatOfTheFoldedUnits) {
    EXPECT_EQ(compare(u"", u""), NSOrderedSame);
    EXPECT_EQ(compare(u"ABC", u"abc"), NSOrderedSame);
    EXPECT_EQ(compare(u"a", u"B"), NSOrderedAscending);
    EXPECT_EQ(compare(u"_", u"A"), NSOrderedAscending); // as "_" before "a"
    EXPECT_EQ(compare(u"ab", u"a"), NSOrderedDescending);
    EXPECT_EQ(compare(u"10", u"9"), NSOrderedAscending);
    EXPECT_EQ(compare(u"z", u"\u00E9"), NSOrderedDescending); // an "e" and an accent
    EXPECT_EQ(compare(u"e", u"\u00C9"), NSOrderedAscending);
    EXPECT_EQ(compare(u"\u00C9", u"e\u0301"), NSOrderedSame);
    EXPECT_EQ(compare(u"K", u"\u212A"), NSOrderedSame); // the Kelvin sign
    EXPECT_EQ(compare(u"\u03C3", u"\u03C2"), NSOrderedSame);
    EXPECT_EQ(compare(u"q\u0307\u0323", u"Q\u0323\u0307"), NSOrderedSame); // marks in either order
    EXPECT_EQ(compare(Text(1, 0xD800), Text(1, 0xDC00)), NSOrderedAscending);
}

TEST(RangeOfString, CountsUnitsOfTheText) {
    EXPECT_EQ(rangeOfString(u"a\u00E9b", u"e\u0301"), (NSRange{1, 1}));
    EXPECT_EQ(rangeOfString(u"ae\u0301b", u"\u00E9"), (NSRange{1, 2}));
    EXPECT_EQ(rangeOfString(u"x\U00010400y", u"\U00010428Y", NSCaseInsensitiveSearch), (NSRange{1, 3}));
    EXPECT_EQ(rangeOfString(u"abc", u"d"), (NSRange{NSNotFound, 0}));
    EXPECT_EQ(rangeOfString(u"abc", nullptr), (NSRange{NSNotFound, 0}));
    EXPECT_EQ(rangeOfString(nullptr, u"abc"), (NSRange{NSNotFound, 0}));
    EXPECT_EQ(rangeOfString(u"xab", u"ab", NSLiteralSearch | NSAnchoredSearch), (NSRange{NSNotFound, 0}));
    EXPECT_EQ(rangeOfString(u"abx", u"ab", NSLiteralSearch | NSAnchoredSearch), (NSRange{0, 2}));
}

TEST(RangeOfString, TakesHangulSyllablesWhole) {
    EXPECT_EQ(rangeOfString(u"\uAC01", u"\uAC00").location, NSNotFound);
    EXPECT_EQ(rangeOfString(u"\u1100\u1161\u11A8", u"\uAC00").location, NSNotFound);
    EXPECT_EQ(rangeOfString(u"x\u1100\u1161\u11A8", u"\uAC01"), (NSRange{1, 3}));
}

TEST(RangeOfString, GoesOnAfterAMatchThatPartsACharacter) {
    EXPECT_EQ(rangeOfString(u"e\u0301 e", u"e"), (NSRange{3, 1}));
    EXPECT_EQ(rangeOfString(u"E\u0301", u"e", NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch),
              (NSRange{0, 2}));
}

TEST(Search, TakesTimeInProportionOnHostileText) {
    const Text marks = u"a" + Text(2'000'000, u'\u0301') + Text(1'000'000, u'\u0323');
    EXPECT_EQ(rangeOfString(marks, u"\u00E9").location, NSNotFound);
    EXPECT_EQ(compare(marks, marks + u"\u4E00"), NSOrderedAscending);
    EXPECT_EQ(rangeOfComposedCharacterSequenceAtIndex(marks, 3'000'000), (NSRange{0, 3'000'001}));
    Text flags;
    for (int i = 0; i < 200'001; ++i) flags += u"\U0001F1E9";
    EXPECT_EQ(rangeOfComposedCharacterSequenceAtIndex(flags, 399'999), (NSRange{399'996, 4}));
}

TEST(ComposedSequence, OutsideTheTextRaises) {
    EXPECT_THROW((void)rangeOfComposedCharacterSequenceAtIndex(u"a", 1), NSException);
    EXPECT_THROW((void)rangeOfComposedCharacterSequenceAtIndex(nullptr, 0), NSException);
}

bool isLoaded(const std::string& module) {
    std::ifstream maps("/proc/self/maps");
    const std::string text((std::istreambuf_iterator<char>(maps)), std::istreambuf_iterator<char>());
    return text.find("/" + module + ".so") != std::string::npos;
}

// In a process of its own, where nothing has been loaded.
[[noreturn]] void compareASCII() {
    setenv("LC_ALL", "en_GB.UTF-8", 1);
    const unsigned all = NSCaseInsensitiveSearch | NSDiacriticInsensitiveSearch | NSWidthInsensitiveSearch;
    const bool answered =
        rangeOfString(u"xABC", u"abc", all).location == 1 &&
        rangeOfString(u"ABC\u00E9", u"ab", all | NSAnchoredSearch).location == 0 &&
        caseInsensitiveCompare(u"ABC", u"abd\u00E9") == NSOrderedAscending &&
        localizedNumericCaseInsensitiveCompare(u"File10", u"file9") == NSOrderedDescending &&
        rangeOfComposedCharacterSequenceAtIndex(u"caf\u00E9s", 3) == NSRange{3, 1};
    const bool loadedTooMuch = isLoaded("Unicode") || isLoaded("Collation");
    (void)caseInsensitiveCompare(u"\u00E9", u"\u4E00");
    _exit(answered && !loadedTooMuch && isLoaded("Unicode") && !isLoaded("Collation") ? 0 : 1);
}

TEST(ASCIIDeathTest, LoadsNoModule) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(compareASCII(), testing::ExitedWithCode(0), "");
}

} // namespace

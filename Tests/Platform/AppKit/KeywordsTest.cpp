// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Keywords.h"

#include <gtest/gtest.h>

namespace {

using Keywords = std::vector<std::u16string>;

TEST(Keywords, ArePartedAtTheSeparatorsAndTrimmed) {
    EXPECT_EQ(splitKeywords(u"one, two words;three"), (Keywords{u"one", u"two words", u"three"}));
    EXPECT_EQ(splitKeywords(u"a;b, c", u","), (Keywords{u"a;b", u"c"}));
    EXPECT_EQ(splitKeywords(u"\t\u00A0a\u00A0b\r\n"), Keywords{u"a\u00A0b"});
}

TEST(Keywords, ThatAreEmptyAreNone) {
    EXPECT_EQ(splitKeywords(u""), Keywords());
    EXPECT_EQ(splitKeywords(u",, ;\n,"), Keywords());
    EXPECT_EQ(splitKeywords(u",a,"), Keywords{u"a"});
}

TEST(Keywords, PastTheLimitAreLeftOut) {
    std::u16string text;
    for (size_t i = 0; i < 2 * kKeywordLimit; ++i) text += u"k,";
    EXPECT_EQ(splitKeywords(text).size(), kKeywordLimit);
}

} // namespace

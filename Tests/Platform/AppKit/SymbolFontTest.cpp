// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/SymbolFont.h"

#include <gtest/gtest.h>

namespace {

TEST(SymbolFont, IsKnownByItsNameInAnyCase) {
    EXPECT_EQ(symbolFontNamed(u"Symbol"), SymbolFont::symbol);
    EXPECT_EQ(symbolFontNamed(u"WINGDINGS"), SymbolFont::wingdings);
    EXPECT_EQ(symbolFontNamed(u"wingdings 3"), SymbolFont::other);
    EXPECT_EQ(symbolFontNamed(u"Wingdings 4"), SymbolFont::none);
    EXPECT_EQ(symbolFontNamed(u""), SymbolFont::none);
}

TEST(SymbolFont, ShowsCharactersForItsCodes) {
    EXPECT_EQ(characterOf(SymbolFont::symbol, 0x61), u'α');
    EXPECT_EQ(characterOf(SymbolFont::wingdings, 0xFC), u'✓');
    EXPECT_EQ(characterOf(SymbolFont::wingdings, 0x83), u'③'); // within a range
    EXPECT_EQ(characterOf(SymbolFont::wingdings, 0x20), u' ');
    EXPECT_EQ(characterOf(SymbolFont::wingdings, 0x24), u'\uF024'); // between ranges
    EXPECT_EQ(characterOf(SymbolFont::other, 0x61), u'\uF061');
}

TEST(SymbolFont, LeavesUnitsThatItHasNoSignFor) {
    EXPECT_EQ(signOf(SymbolFont::symbol, u'\uF0B7'), u'•');
    EXPECT_EQ(signOf(SymbolFont::wingdings, u'\u00A7'), u'▪');
    EXPECT_EQ(signOf(SymbolFont::wingdings, u'\uF024'), u'\uF024');
    EXPECT_EQ(signOf(SymbolFont::none, u'o'), u'o');
    EXPECT_EQ(signOf(SymbolFont::other, u'\uF061'), u'\uF061');
    EXPECT_EQ(signOf(SymbolFont::symbol, u'\u2022'), u'\u2022');
    EXPECT_EQ(signOf(SymbolFont::symbol, u'\t'), u'\t');
}

} // namespace

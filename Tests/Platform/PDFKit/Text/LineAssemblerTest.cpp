// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/PDFKit/Text/LineTesting.h"

#include <cmath>
#include <limits>

namespace {

TEST(LineAssembler, WithoutGlyphsGivesNothing) { EXPECT_EQ(Page().text(), u""); }

TEST(LineAssembler, JoinsGlyphsThatTouch) { EXPECT_EQ(Page().show(u"word").text(), u"word"); }

TEST(LineAssembler, EndsALineButNotThePageWithALineFeed) {
    EXPECT_EQ(Page().at(0, 100).show(u"one").at(0, 88).show(u"two").text(), u"one\ntwo");
}

TEST(LineAssembler, AppendsToWhatIsThere) {
    std::u16string text = u"page\n";
    LineAssembler(text).finish();
    EXPECT_EQ(text, u"page\n");
}

TEST(LineAssembler, TakesAWideGapForABlank) {
    EXPECT_EQ(Page().show(u"a").gap(1.4).show(u"b").text(), u"ab");
    EXPECT_EQ(Page().show(u"a").gap(1.6).show(u"b").text(), u"a b");
}

TEST(LineAssembler, TakesANarrowGapForABlankWhereLettersAreCondensed) {
    Page page;
    page.stretch = 0.5;
    EXPECT_EQ(page.show(u"a").gap(0.9).show(u"b").text(), u"a b");
}

TEST(LineAssembler, TakesOnlyAWiderGapForABlankBetweenFullWidthCharacters) {
    EXPECT_EQ(Page().show(u"漢").gap(5).show(u"字").text(), u"漢字");
    EXPECT_EQ(Page().show(u"漢").gap(6.5).show(u"字").text(), u"漢 字");
}

TEST(LineAssembler, WritesBlanksOfEveryKindAsOne) {
    EXPECT_EQ(Page().show(u"a \u00A0\u2003\u3000\tb").text(), u"a b");
    EXPECT_EQ(Page().show(u"a ").gap(20).show(u" b").text(), u"a b");
}

TEST(LineAssembler, WritesBlanksWithinGlyphsLikewise) {
    EXPECT_EQ(Page().glyph(u" a  b ").glyph(u" c\n").text(), u"a b c");
}

TEST(LineAssembler, PutsNoBlanksAtTheEndsOfLines) {
    EXPECT_EQ(Page().at(0, 50).show(u"  a  ").at(0, 30).show(u"   ").at(0, 10).show(u" b ").text(), u"a\nb");
}

TEST(LineAssembler, LeavesAGapWhereNobodyKnowsWhatAGlyphSays) {
    EXPECT_EQ(Page().show(u"a").glyph(u"").show(u"b").text(), u"a b");
}

TEST(LineAssembler, StartsALineWhereThePenMovesAcross) {
    EXPECT_EQ(Page().at(0, 0).show(u"ab").at(10, 4.9).show(u"2").text(), u"ab2");
    EXPECT_EQ(Page().at(0, 0).show(u"ab").at(10, 5.1).show(u"2").text(), u"ab\n2");
}

TEST(LineAssembler, StartsALineWhereThePenGoesBack) {
    EXPECT_EQ(Page().at(0, 0).show(u"ab").at(5, 0).show(u"c").text(), u"abc");
    EXPECT_EQ(Page().at(0, 0).show(u"ab").at(3, 0).show(u"c").text(), u"ab\nc");
}

TEST(LineAssembler, KeepsTheRowsOfATableTogether) {
    EXPECT_EQ(Page()
                  .at(0, 20)
                  .show(u"L0")
                  .at(200, 20)
                  .show(u"R0")
                  .at(0, 0)
                  .show(u"L1")
                  .at(200, 0)
                  .show(u"R1")
                  .text(),
              u"L0 R0\nL1 R1");
}

TEST(LineAssembler, KeepsColumnsInTheOrderInWhichTheyAreDrawn) {
    EXPECT_EQ(
        Page().at(0, 20).show(u"a").at(0, 8).show(u"b").at(99, 20).show(u"c").at(99, 8).show(u"d").text(),
        u"a\nb\nc\nd");
}

TEST(LineAssembler, FollowsEveryDirectionOfWriting) {
    for (double degrees : {0, 30, 45, 90, 180, 270}) {
        Page page;
        page.ux = std::cos(degrees * M_PI / 180);
        page.uy = std::sin(degrees * M_PI / 180);
        page.at(100, 100).show(u"one").gap(3).show(u"two");
        EXPECT_EQ(page.at(100 + 12 * page.uy, 100 - 12 * page.ux).show(u"three").text(), u"one two\nthree")
            << degrees;
    }
}

TEST(LineAssembler, StartsALineWhereTheDirectionTurns) {
    Page page;
    page.show(u"a");
    page.ux = std::cos(0.25);
    page.uy = std::sin(0.25);
    EXPECT_EQ(page.show(u"b").text(), u"a\nb");
}

TEST(LineAssembler, DropsGlyphsThatAreDrawnTwice) {
    EXPECT_EQ(Page().at(0, 0).show(u"Bold").at(0.4, 0).show(u"Bold").text(), u"Bold");
    EXPECT_EQ(Page().at(0, 0).show(u"B").at(0.4, 0.4).show(u"B").gap(0).show(u"o").text(), u"Bo");
}

TEST(LineAssembler, KeepsLettersThatStandTwiceSideBySide) {
    EXPECT_EQ(Page().show(u"Aal").show(u"l").text(), u"Aall");
    EXPECT_EQ(Page().at(0, 0).show(u"iI").at(0, 0).show(u"x").text(), u"iI\nx");
}

TEST(LineAssembler, ClosesTheGapsOfSpacedWords) {
    Page page;
    page.spacing = 4;
    EXPECT_EQ(page.show(u"Lorem ipsum").text(), u"Lorem ipsum");
}

TEST(LineAssembler, KeepsTheBlanksOfJustifiedLines) {
    // Words are set apart by moving the pen back before each letter but the first.
    Page page;
    page.spacing = 4;
    for (char16_t letter : std::u16string_view(u"ab cd"))
        page.glyph(std::u16string_view(&letter, 1)).gap(letter == u'b' ? 0 : -4);
    EXPECT_EQ(page.text(), u"ab cd");
}

TEST(LineAssembler, TakesSpacingBetweenTwoLettersForABlank) {
    Page page;
    page.spacing = 4;
    EXPECT_EQ(page.show(u"ab").text(), u"a b");
}

TEST(LineAssembler, WritesLigaturesInTheirLetters) {
    EXPECT_EQ(Page().show(u"o\uFB03ce \uFB01x").text(), u"office fix");
}

TEST(LineAssembler, KeepsHyphensAtTheEndsOfLines) {
    EXPECT_EQ(Page().at(0, 12).show(u"co-").at(0, 0).show(u"op").text(), u"co-\nop");
    EXPECT_EQ(Page().at(0, 12).show(u"hyphen\u00AD").at(0, 0).show(u"ated").text(), u"hyphen\u00AD\nated");
}

TEST(LineAssembler, MakesTextOfWhatIsNone) {
    std::u16string nul(1, u'\0');
    EXPECT_EQ(Page().show(u"a").glyph(nul + u"b").glyph(std::u16string(1, char16_t(0xD800))).text(),
              u"ab\uFFFD");
    EXPECT_EQ(Page().show(u"a\u0007\u007Fb").text(), u"a b");
}

TEST(LineAssembler, KeepsCharactersOutsideOfTheBasicPlane) {
    EXPECT_EQ(Page().glyph(u"𠀀").glyph(u"😀").text(), u"𠀀😀");
}

TEST(LineAssembler, EndsInALineForEachPlaceThatIsNone) {
    double none = std::numeric_limits<double>::quiet_NaN(), far = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Page().show(u"a").at(none, none).show(u"b").at(far, far).show(u"c").text(), u"a\nb\nc");
}

} // namespace

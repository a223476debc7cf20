// SPDX-License-Identifier: Apache-2.0
//
// Texts are given as they stand on the page, from left to right.
#include "Tests/Platform/PDFKit/Text/LineTesting.h"

#include <limits>

namespace {

std::u16string read(std::u16string_view fromLeftToRight) { return Page().show(fromLeftToRight).text(); }

TEST(RightToLeftLine, IsReadFromItsRight) {
    EXPECT_EQ(read(u"םולש"), u"שלום");
    EXPECT_EQ(read(u"םלוע םולש"), u"שלום עולם");
}

TEST(RightToLeftLine, IsReadFromItsRightHoweverItWasDrawn) {
    // The first letter at the right, then each further one to the left of the one before it.
    Page page;
    double x = 100;
    for (char16_t letter : std::u16string_view(u"שלום"))
        page.at(x -= 5, 0).glyph(std::u16string_view(&letter, 1));
    EXPECT_EQ(page.text(), u"שלום");
}

TEST(RightToLeftLine, TakesAGapBetweenLettersForABlank) {
    EXPECT_EQ(Page().show(u"םל").gap(3).show(u"לש").text(), u"של לם");
}

TEST(RightToLeftLine, KeepsNumbersAsTheyStand) {
    EXPECT_EQ(read(u"2026 תנש"), u"שנת 2026");
    EXPECT_EQ(read(u"12.50 ב"), u"ב 12.50");
    EXPECT_EQ(read(u"3-1 ב"), u"ב 3-1");
}

TEST(RightToLeftLine, KeepsTheOrderOfNumbersBesideEachOther) {
    // Each number by itself, the first one at the right.
    EXPECT_EQ(read(u"20 10 בא"), u"אב 10 20");
}

TEST(RightToLeftLine, KeepsLatinWordsAsTheyStand) {
    EXPECT_EQ(read(u"ונלש PDF 1.7 ץבוק"), u"קובץ PDF 1.7 שלנו");
}

TEST(RightToLeftLine, KeepsHebrewWordsInALatinLineInTheirPlace) {
    EXPECT_EQ(read(u"The word םולש means peace"), u"The word שלום means peace");
    EXPECT_EQ(read(u"The words םלוע םולש mean it"), u"The words שלום עולם mean it");
    EXPECT_EQ(read(u"About 2026 תנש here now"), u"About 2026 שנת here now");
}

TEST(RightToLeftLine, TurnsBrackets) {
    EXPECT_EQ(read(u"(בא) גד"), u"דג (אב)");
    EXPECT_EQ(read(u"«בא»"), u"«אב»");
    EXPECT_EQ(read(u"(PDF) םולש"), u"שלום (PDF)");
}

TEST(RightToLeftLine, KeepsGlyphsOfSeveralLettersWhole) {
    // Lam and alef are one glyph, which stands for both in the order of reading.
    EXPECT_EQ(Page().glyph(u"م").glyph(u"لا").glyph(u"س").text(), u"سلام");
}

TEST(RightToLeftLine, IsMadeOfLettersWhereTheFontKnowsShapes) {
    EXPECT_EQ(read(u"\uFEE1\uFEFC\uFEB3"), u"سلام");
    EXPECT_EQ(read(u"\uFBFD\uFB90"), u"\u06A9\u06CC");
    EXPECT_EQ(read(u"\uFB4F"), u"\uFB4F") << "Hebrew ones stay";
    EXPECT_EQ(read(u"\uFDFA\uFE73"), u"\uFE73\uFDFA") << "and what is no single letter";
}

TEST(RightToLeftLine, PutsMarksBehindTheirLetters) {
    Page page;
    page.at(0, 0).show(u"בא"); // alef at the right, from 5 to 10
    page.width = 0;
    page.at(7, 0).glyph(u"\u05B8");
    EXPECT_EQ(page.text(), u"א\u05B8ב");
}

TEST(RightToLeftLine, OfMarksAloneIsReadToo) { EXPECT_EQ(read(u"\u05B8"), u"\u05B8"); }

TEST(RightToLeftLine, GoesOnAtItsLeftAfterALatinWord) {
    Page page;
    page.at(50, 0).show(u"םולש"); // ends at 70
    page.at(30, 0).show(u"PDF");
    page.at(5, 0).show(u"ץבוק");
    EXPECT_EQ(page.text(), u"שלום PDF קובץ");
}

TEST(RightToLeftLine, EndsWhereTheNextGlyphIsFarAway) {
    Page page;
    page.at(200, 0).show(u"בא");
    page.at(10, 0).show(u"דג");
    EXPECT_EQ(page.text(), u"אב\nגד");
}

TEST(RightToLeftLine, EndsWithPlacesThatAreNone) {
    Page page;
    page.show(u"בא");
    page.width = std::numeric_limits<double>::quiet_NaN();
    page.show(u"גד");
    EXPECT_NE(page.text(), u"");
}

} // namespace

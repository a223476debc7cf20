// SPDX-License-Identifier: Apache-2.0
//
// What stands on a page, by the operators that put it there.
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

namespace {

TEST(PageText, OfAnEmptyPageIsEmpty) { EXPECT_EQ(textOfPage(""), u""); }

TEST(PageText, HasNoLineFeedAtItsEnd) {
    EXPECT_EQ(textOfPage(textAt(50, 700, "one") + textAt(50, 680, "two")), u"one\ntwo");
}

TEST(PageText, FollowsEveryOperatorThatShowsText) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 12 TL 50 700 Td (Tj) Tj [(T) -20 (J)] TJ (quote) ' 0 0 (double) \" ET"),
              u"TjTJ\nquote\ndouble");
}

TEST(PageText, FollowsEveryOperatorThatMovesThePen) {
    EXPECT_EQ(
        textOfPage("BT /F 10 Tf 50 700 Td (Td) Tj 0 -15 TD (TD) Tj T* (T*) Tj 1 0 0 1 50 600 Tm (Tm) Tj ET"),
        u"Td\nTD\nT*\nTm");
}

TEST(PageText, TakesNumbersBetweenStringsForBlanksWhereTheyAreWide) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 50 700 Td [(ab) -100 (cd) -300 (ef)] TJ ET"), u"abcd ef");
}

TEST(PageText, UsesSpacingBetweenWords) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 5 Tw 50 700 Td (a b) Tj ET"), u"a b");
}

TEST(PageText, ClosesSpacedLetters) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 6 Tc 50 700 Td (Lorem ipsum) Tj ET"), u"Lorem ipsum");
}

TEST(PageText, UsesTheHorizontalScale) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 50 Tz 50 700 Td (ab) Tj 6 0 Td (cd) Tj 7 0 Td (ef) Tj ET"), u"abcd ef");
}

TEST(PageText, KeepsRaisedTextOnItsLine) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 50 700 Td (x) Tj 4 Ts (2) Tj 0 Ts (y) Tj ET"), u"x2y");
}

TEST(PageText, FollowsTheTransformation) {
    EXPECT_EQ(textOfPage("q 2 0 0 2 0 0 cm " + textAt(10, 300, "big") + "Q " + textAt(10, 100, "small")),
              u"big\nsmall");
}

TEST(PageText, BringsTheStateBack) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 50 700 Td ET q /F 100 Tf Q BT 50 700 Td (a) Tj 8 0 Td (b) Tj ET"),
              u"a b");
}

TEST(PageText, RunsInEveryDirection) {
    EXPECT_EQ(textOfPage("BT /F 10 Tf 0 1 -1 0 100 100 Tm (up one) Tj 1 0 0 1 112 100 Tm (across) Tj ET"),
              u"up one\nacross");
    EXPECT_EQ(textOfPage("BT /F 10 Tf .7071 .7071 -.7071 .7071 100 100 Tm (diagonal text) Tj ET"),
              u"diagonal text");
}

TEST(PageText, OfATurnedPageIsTheSame) {
    PDFWriter writer;
    writer.addPage(textAt(50, 700, "one") + textAt(50, 680, "two"), "/Rotate 90");
    EXPECT_EQ(textOf(writer.write()), u"one\ntwo");
}

TEST(PageText, HoldsWhatCannotBeSeen) {
    EXPECT_EQ(textOfPage("BT 3 Tr /F 10 Tf 50 700 Td (scanned) Tj ET"), u"scanned");
    EXPECT_EQ(textOfPage("1 g " + textAt(50, 700, "white")), u"white");
    EXPECT_EQ(textOfPage(textAt(-500, 2000, "outside")), u"outside");
    EXPECT_EQ(textOfPage("BT 7 Tr /F 10 Tf 50 700 Td (clip) Tj ET"), u"clip");
}

TEST(PageText, HoldsBoldTextThatIsDrawnTwiceOnce) {
    EXPECT_EQ(textOfPage(textAt(50, 700, "Bold") + textAt(50.3, 700, "Bold")), u"Bold");
}

TEST(PageText, IsPutTogetherOfAllContents) {
    PDFWriter writer;
    int first = writer.addStream("BT /F 10 Tf 50 700 Td (one) T"), second = writer.addStream("j (two) Tj ET");
    int page = writer.addPage("");
    writer.replace(page, "<</Type/Page/Parent 2 0 R/Resources<</Font<</F 3 0 R>>>>/Contents[" +
                             reference(first) + " " + reference(second) + "]>>");
    // Streams are parted as by white space: an operator that is cut in two is none.
    EXPECT_EQ(textOf(writer.write()), u"two");
}

TEST(PageText, FindsResourcesThatPagesInherit) {
    PDFWriter writer;
    int page = writer.addPage(textAt(50, 700, "inherited"));
    int content = page - 1;
    writer.replace(page, "<</Type/Page/Parent 2 0 R/Contents " + reference(content) + ">>");
    writer.pages = "/Resources<</Font<</F 3 0 R>>>>";
    EXPECT_EQ(textOf(writer.write()), u"inherited");
}

TEST(PageText, GoesOnAfterWhatIsNoOperator) {
    EXPECT_EQ(textOfPage("]] >> /Unknown 17 gibberish ) BT " + textAt(50, 700, "after")), u"after");
    EXPECT_EQ(textOfPage("Q Q Q ET EMC " + textAt(50, 700, "after")), u"after");
}

TEST(PageText, IsReadUpToTheDamage) {
    EXPECT_EQ(textOfPage(textAt(50, 700, "before") + "BT /F 10 Tf (cut o"), u"before");
}

TEST(PageText, HasNoTextInAFontThatIsNotThere) {
    // The engine takes one of its own, as viewers do.
    PDFWriter writer;
    writer.addPage(textAt(50, 700, "text"), "/Resources<<>>");
    EXPECT_EQ(textOf(writer.write()), u"text");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
//
// Opening documents, counting and finding their pages, and what they say of themselves.
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNumber.h"

using namespace std::literals;

namespace {

NSDictionary attributesWith(const std::string& information) {
    PDFWriter writer;
    writer.trailer = "/Info " + reference(writer.add("<<" + information + ">>"));
    return OpenedPDF(writer.write())->documentAttributes();
}

NSObject attribute(const std::string& value) {
    return attributesWith("/Key " + value).objectForKey(NSString(u"Key"));
}
NSObject date(const std::string& value) {
    return attributesWith("/ModDate " + value).objectForKey(NSString(u"ModDate"));
}

TEST(PDFDocument, IsNotMadeOfOtherBytes) {
    for (std::string_view bytes : {""sv, "\0\0\0\0"sv, "text"sv, "%PDF-1.7\n"sv, "{\\rtf1 text}"sv})
        EXPECT_FALSE(OpenedPDF(std::string(bytes))) << bytes;
}

TEST(PDFDocument, IsRepairedWithoutItsTable) {
    std::string bytes = pdfOfPages({textAt(50, 700, "one"), textAt(50, 700, "two")});
    OpenedPDF cut(bytes.substr(0, bytes.find("xref")));
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->pageCount(), 2u);
    EXPECT_EQ(cut.page(0) + cut.page(1), u"onetwo");
}

TEST(PDFDocument, MayStandBehindOtherBytes) {
    OpenedPDF pdf("From: mail\n\n" + pdfOfPages({textAt(50, 700, "one")}));
    ASSERT_TRUE(pdf);
    EXPECT_EQ(pdf.page(0), u"one");
}

TEST(PDFDocument, SaysHowManyPagesItHas) {
    EXPECT_EQ(OpenedPDF(pdfOfPages({}))->pageCount(), 0u);
    EXPECT_EQ(OpenedPDF(pdfOfPages({"", "", ""}))->pageCount(), 3u);
}

TEST(PDFDocument, SaysAtMostAsManyPagesAsItHasObjects) {
    PDFWriter writer;
    writer.addPage(textAt(50, 700, "one"));
    writer.count = 2147483647;
    OpenedPDF pdf(writer.write());
    EXPECT_EQ(pdf->pageCount(), 6u);
    EXPECT_EQ(pdf.page(0), u"one");
    for (size_t i = 1; i < 6; ++i) EXPECT_FALSE(pdf->pageAtIndex(i)) << i;
}

TEST(PDFDocument, SaysNoLessThanNoPages) {
    PDFWriter writer;
    writer.addPage("");
    writer.replace(2, "<</Type/Pages/Kids[5 0 R]/Count -3>>");
    EXPECT_EQ(OpenedPDF(writer.write())->pageCount(), 0u);
}

TEST(PDFDocument, ThatDoesNotSayItHasThePagesThatAreThere) {
    PDFWriter writer;
    writer.addPage("");
    writer.addPage("");
    writer.replace(2, "<</Type/Pages/Kids[5 0 R 7 0 R]>>");
    EXPECT_EQ(OpenedPDF(writer.write())->pageCount(), 2u);
}

TEST(PDFDocument, AnswersNothingForAPageThatIsNotThere) {
    OpenedPDF pdf(pdfOfPages({textAt(50, 700, "one")}));
    PDFPage none = pdf->pageAtIndex(1);
    EXPECT_FALSE(none);
    EXPECT_FALSE(none.string());
    EXPECT_TRUE(none.annotations().empty());
}

TEST(PageTree, IsFollowedInItsOrder) {
    PDFWriter writer;
    int first = writer.addPage(textAt(50, 700, "1")), second = writer.addPage(textAt(50, 700, "2")),
        third = writer.addPage(textAt(50, 700, "3"));
    int node = writer.add("<</Type/Pages/Count 2/Kids[" + reference(first) + " " + reference(second) + "]>>");
    writer.replace(2,
                   "<</Type/Pages/Count 3/Kids[" + reference(node) + " null 17 " + reference(third) + "]>>");
    OpenedPDF pdf(writer.write());
    EXPECT_EQ(pdf.page(0) + pdf.page(1) + pdf.page(2), u"123");
    EXPECT_EQ(pdf.page(0), u"1"); // back again
}

TEST(PageTree, MayHoldAPageTwice) {
    PDFWriter writer;
    int page = writer.addPage(textAt(50, 700, "x"));
    writer.replace(2, "<</Type/Pages/Count 2/Kids[" + reference(page) + " " + reference(page) + "]>>");
    OpenedPDF pdf(writer.write());
    EXPECT_EQ(pdf.page(0) + pdf.page(1), u"xx");
}

TEST(PageTree, ThatLeadsBackIntoItselfComesToAnEnd) {
    PDFWriter writer;
    int page = writer.addPage(textAt(50, 700, "x"));
    int node = writer.add("<</Type/Pages/Count 9/Kids[2 0 R " + reference(page) + "]>>");
    writer.replace(2, "<</Type/Pages/Count 9/Kids[" + reference(node) + " 2 0 R " + reference(node) + "]>>");
    OpenedPDF pdf(writer.write());
    EXPECT_EQ(pdf.page(0), u"x");
    EXPECT_FALSE(pdf->pageAtIndex(1));
}

TEST(PageTree, MayHangInItsOwnBranches) {
    // Each node holds the next one twice: 2 to the power of 60 ways to nothing.
    PDFWriter writer;
    int next = writer.add("<</Type/Pages/Kids[]/Count 0>>");
    for (int i = 0; i < 60; ++i)
        next = writer.add("<</Type/Pages/Kids[" + reference(next) + " " + reference(next) + "]>>");
    writer.replace(2, "<</Type/Pages/Count 5/Kids[" + reference(next) + "]>>");
    EXPECT_FALSE(OpenedPDF(writer.write())->pageAtIndex(0));
}

TEST(PDFInformation, IsEmptyWhereThereIsNone) {
    EXPECT_EQ(OpenedPDF(pdfOfPages({}))->documentAttributes().count(), 0u);
    PDFWriter writer;
    writer.trailer = "/Info(text)";
    EXPECT_EQ(OpenedPDF(writer.write())->documentAttributes().count(), 0u);
}

TEST(PDFInformation, KeepsEveryKey) {
    NSDictionary all =
        attributesWith("/Title(T)/Author(A)/Subject(S)/Keywords(a, b)/Own#20Key(own)/K\xFC(x)");
    EXPECT_EQ(all.count(), 6u);
    EXPECT_EQ(all.get<NSString>(NSString(u"Keywords")).text(), u"a, b");
    EXPECT_EQ(all.get<NSString>(NSString(u"Own Key")).text(), u"own");
    EXPECT_EQ(all.get<NSString>(NSString(u"Kü")).text(), u"x");
}

TEST(PDFInformation, HasTexts) {
    EXPECT_EQ(as<NSString>(attribute("(\\217text\\220)")).text(), u"\u2018text\u2019");
    EXPECT_EQ(as<NSString>(attribute("<FEFF004700FC>")).text(), u"Gü");
    EXPECT_EQ(as<NSString>(attribute("()")).text(), u"");
}

TEST(PDFInformation, HasNamesAsTexts) { EXPECT_EQ(as<NSString>(attribute("/True")).text(), u"True"); }

TEST(PDFInformation, HasNumbers) {
    EXPECT_EQ(as<NSNumber>(attribute("42")).integerValue(), 42);
    EXPECT_FALSE(as<NSNumber>(attribute("42")).isFloating());
    EXPECT_EQ(as<NSNumber>(attribute("-1.5")).doubleValue(), -1.5);
    EXPECT_TRUE(as<NSNumber>(attribute("true")).isBoolean());
    EXPECT_TRUE(as<NSNumber>(attribute("true")).boolValue());
    EXPECT_FALSE(as<NSNumber>(attribute("false")).boolValue());
}

TEST(PDFInformation, HasCollections) {
    NSArray array = as<NSArray>(attribute("[(a) /b 3 null]"));
    ASSERT_EQ(array.count(), 3u);
    EXPECT_EQ(as<NSString>(array.objectAtIndex(1)).text(), u"b");
    EXPECT_EQ(as<NSDictionary>(attribute("<</a 1>>")).count(), 1u);
}

TEST(PDFInformation, LeavesOutWhatIsNull) {
    EXPECT_EQ(attributesWith("/Title null").count(), 0u);
    EXPECT_EQ(attributesWith("/Title 99 0 R").count(), 0u);
}

TEST(PDFInformation, HasDatesWhereTheyCanBeRead) {
    EXPECT_EQ(as<NSDate>(date("(D:20260131120000Z)")).timeIntervalSinceReferenceDate(),
              referenceTime({2026, 1, 31, 12, 0, 0}));
    EXPECT_EQ(as<NSString>(date("(8/2/2007 13:49:06)")).text(), u"8/2/2007 13:49:06");
    EXPECT_EQ(as<NSString>(date("()")).text(), u"");
    EXPECT_TRUE(as<NSNumber>(date("false")).isBoolean());
    EXPECT_TRUE(is<NSString>(attribute("(D:20260131120000Z)"))) << "other keys hold texts";
}

TEST(PDFInformation, EndsWhereItIsTooDeep) {
    EXPECT_TRUE(is<NSArray>(attribute(std::string(200, '[') + std::string(200, ']'))));
    PDFWriter writer;
    int itself = writer.add("");
    writer.replace(itself, "[" + reference(itself) + " " + reference(itself) + "]");
    writer.trailer = "/Info<</Key " + reference(itself) + ">>";
    EXPECT_EQ(OpenedPDF(writer.write())->documentAttributes().count(), 1u);
}

} // namespace

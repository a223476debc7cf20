// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OfficeOpenXML/OfficeOpenXMLTesting.h"

namespace {

TEST(OfficeOpenXMLInfo, readsTheProperties) {
    DocxWriter docx;
    docx.core =
        "<dc:title> A &amp; B </dc:title><dc:subject>Subject</dc:subject><dc:creator>Someone</dc:creator>"
        "<cp:keywords>one, two;three four,,</cp:keywords><dc:description>Words</dc:description>"
        "<cp:lastModifiedBy>Else</cp:lastModifiedBy><cp:category>Kind</cp:category><cp:revision>7</"
        "cp:revision>"
        "<dcterms:created>2001-01-01T00:00:00Z</dcterms:created>"
        "<dcterms:modified>2001-01-02T01:00:00+01:00</dcterms:modified>";
    docx.extended = "<TitlesOfParts>Part</TitlesOfParts><Company>Firm</Company><Manager>Boss</Manager>";
    DocumentInfo info = contentsOf(docx).info;
    EXPECT_EQ(info.title, u"A & B");
    EXPECT_EQ(info.subject, u"Subject");
    EXPECT_EQ(info.author, u"Someone");
    EXPECT_EQ(info.keywords, (std::vector<std::u16string>{u"one", u"two", u"three four"}));
    EXPECT_EQ(info.comment, u"Words");
    EXPECT_EQ(info.editor, u"Else");
    EXPECT_EQ(info.category, u"Kind");
    EXPECT_EQ(info.company, u"Firm");
    EXPECT_EQ(info.manager, u"Boss");
    EXPECT_EQ(info.creationTime, 0.0);
    EXPECT_EQ(info.modificationTime, 86400.0);
    EXPECT_EQ(info.converted, -1);
}

TEST(OfficeOpenXMLInfo, readsKeywordsOfSeveralLanguages) {
    DocxWriter docx;
    docx.core = "<cp:keywords><cp:value>one</cp:value><cp:value>zwei</cp:value></cp:keywords>";
    EXPECT_EQ(contentsOf(docx).info.keywords, (std::vector<std::u16string>{u"one", u"zwei"}));
}

TEST(OfficeOpenXMLInfo, saysNothingOfWhatTheDocumentDoesNotSay) {
    DocumentInfo info = contentsOf(DocxWriter()).info;
    EXPECT_EQ(info.title, u"");
    EXPECT_TRUE(info.keywords.empty());
    EXPECT_FALSE(info.creationTime || info.modificationTime || info.paperSize || info.leftMargin);
}

TEST(OfficeOpenXMLInfo, takesThePageOfTheLastSection) {
    DocxWriter docx;
    const std::string first =
        "<w:sectPr><w:pgSz w:w=\"1000\" w:h=\"2000\"/><w:pgMar w:left=\"1\"/></w:sectPr>";
    const std::string former =
        "<w:sectPrChange><w:sectPr><w:pgSz w:w=\"1\" w:h=\"1\"/></w:sectPr></w:sectPrChange>";
    docx.body = paragraph(run("a"), first) +
                "<w:sectPr><w:pgSz w:w=\"12240\" w:h=\"15840\"/><w:pgMar w:top=\"-1440\" w:right=\"1800\""
                " w:bottom=\"720\" w:left=\"20\"/>" +
                former + "</w:sectPr>";
    DocumentInfo info = contentsOf(docx).info;
    ASSERT_TRUE(info.paperSize);
    EXPECT_EQ(info.paperSize->width, 612);
    EXPECT_EQ(info.paperSize->height, 792);
    EXPECT_EQ(info.topMargin, 72);
    EXPECT_EQ(info.rightMargin, 90);
    EXPECT_EQ(info.bottomMargin, 36);
    EXPECT_EQ(info.leftMargin, 1);
}

TEST(OfficeOpenXMLInfo, readsMeasuresWithUnits) {
    DocxWriter docx;
    docx.strict = true;
    docx.body =
        "<w:sectPr><w:pgSz w:w=\"612pt\" w:h=\"11in\"/><w:pgMar w:top=\"x\" w:left=\"2.54cm\"/></w:sectPr>";
    DocumentInfo info = contentsOf(docx).info;
    ASSERT_TRUE(info.paperSize);
    EXPECT_EQ(info.paperSize->width, 612);
    EXPECT_EQ(info.paperSize->height, 792);
    EXPECT_FALSE(info.topMargin);
    EXPECT_NEAR(info.leftMargin.value_or(0), 72, 1e-9);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OpenDocument/OpenDocumentTesting.h"

namespace {

using namespace OpenDocumentTesting;

TEST(OpenDocumentText, collapsesWhiteSpace) {
    expectTexts({
        {"runs are one space", "<text:p>a  b\n\t\r c</text:p>", u"a b c\n"},
        {"none at either end", "<text:p> \n a \n </text:p>", u"a\n"},
        {"runs go over elements", "<text:p>a <text:span> b </text:span> c</text:p>", u"a b c\n"},
        {"only in the paragraph", "<text:p>a </text:p> <text:p> b</text:p>", u"a\nb\n"},
        {"spaces of their own element stay", "<text:p><text:s/>a<text:s text:c='3'/> b<text:s/></text:p>",
         u" a    b \n"},
        {"a space before such a space stays", "<text:p>a <text:s/>b</text:p>", u"a  b\n"},
        {"a space after a tab stays", "<text:p>a<text:tab/> b</text:p>", u"a\t b\n"},
        {"no-break space is text", "<text:p>&#xA0; a</text:p>", u"\u00A0 a\n"},
        {"only white space", "<text:p>  </text:p>", u"\n"},
        {"between paragraphs nothing counts", " \n <text:p>a</text:p> stray <text:p>b</text:p> \n ",
         u"a\nb\n"},
    });
}

TEST(OpenDocumentText, givesBreaksAndTabs) {
    expectTexts({
        {"line break", "<text:p>a<text:line-break/>b</text:p>", u"a\u2028b\n"},
        {"tab", "<text:p>a<text:tab text:tab-ref='1'/>b</text:p>", u"a\tb\n"},
        {"soft page break", "<text:p>a<text:soft-page-break/>b</text:p>", u"ab\n"},
        {"headings are paragraphs", "<text:h text:outline-level='1'>a</text:h><text:p>b</text:p>", u"a\nb\n"},
        {"empty paragraphs", "<text:p/><text:p/>", u"\n\n"},
        {"no count", "<text:p>a<text:s text:c='none'/>b</text:p>", u"a b\n"},
        {"bad counts", "<text:p>a<text:s text:c='0'/><text:s text:c='-5'/>b</text:p>", u"ab\n"},
    });
}

TEST(OpenDocumentText, boundsSpaceCounts) {
    std::string body = "<text:p>";
    for (int i = 0; i < 100; ++i) body += "<text:s text:c='99999999999999999999'/>";
    EXPECT_EQ(textOf(body + "</text:p>").size(), 100'001u);
}

TEST(OpenDocumentText, givesTextOfAllPlanes) {
    EXPECT_EQ(textOf("<text:p>\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 &amp; &#x1F600;</text:p>"),
              u"\u00E9 \u20AC \U0001F600 & \U0001F600\n");
}

TEST(OpenDocumentText, keepsWhatIsRead) {
    expectTexts({
        {"links", "<text:p>a<text:a>b</text:a>c</text:p>", u"abc\n"},
        {"fields",
         "<text:p><text:page-number>7</text:page-number> <text:date>2010-01-02</text:date></text:p>",
         u"7 2010-01-02\n"},
        {"variables",
         "<text:p><text:variable-set>5</text:variable-set><text:user-field-get>6</text:user-field-get></"
         "text:p>",
         u"56\n"},
        {"conditional text", "<text:p><text:conditional-text>yes</text:conditional-text></text:p>", u"yes\n"},
        {"ruby base",
         "<text:p><text:ruby><text:ruby-base>a</text:ruby-base><text:ruby-text>b</text:ruby-text></"
         "text:ruby></text:p>",
         u"a\n"},
        {"sections", "<text:section><text:p>a</text:p></text:section>", u"a\n"},
        {"indexes",
         "<text:table-of-content><text:table-of-content-source><text:index-title-template>x"
         "</text:index-title-template></text:table-of-content-source><text:index-body><text:index-title>"
         "<text:p>Contents</text:p></text:index-title><text:p>a<text:tab/>1</text:p></text:index-body>"
         "</text:table-of-content>",
         u"Contents\na\t1\n"},
        {"insertions", "<text:p>a<text:change-start/>b<text:change-end/></text:p>", u"ab\n"},
        {"unknown elements", "<text:p>a<text:novelty>b</text:novelty></text:p>", u"ab\n"},
    });
}

TEST(OpenDocumentText, leavesOutWhatIsNotRead) {
    expectTexts({
        {"comments",
         "<text:p>a<office:annotation><dc:creator>N</dc:creator><text:p>x</text:p></office:annotation>b</"
         "text:p>",
         u"ab\n"},
        {"deletions",
         "<text:tracked-changes><text:changed-region><text:deletion><text:p>x</text:p></text:deletion>"
         "</text:changed-region></text:tracked-changes><text:p>a<text:change/>b</text:p>",
         u"ab\n"},
        {"declarations",
         "<text:user-field-decls><text:user-field-decl/></text:user-field-decls><text:p>a</text:p>", u"a\n"},
        {"forms", "<office:forms><text:p>x</text:p></office:forms><text:p>a</text:p>", u"a\n"},
        {"scripts", "<text:p>a<text:script>x</text:script>b</text:p>", u"ab\n"},
        {"titles of pictures",
         "<text:p>a<draw:frame><draw:image><text:p>x</text:p></draw:image><svg:title>x</svg:title>"
         "<svg:desc>x</svg:desc></draw:frame>b</text:p>",
         u"ab\n"},
        {"formulas",
         "<text:p>a<draw:frame><draw:object><math:math>x</math:math></draw:object></draw:frame>b</text:p>",
         u"ab\n"},
        {"stored numbers", "<text:h><text:number>1.</text:number>a</text:h>", u"a\n"},
    });
}

TEST(OpenDocumentText, endsEachCellParagraph) {
    EXPECT_EQ(
        textOf("<table:table><table:table-column table:number-columns-repeated='3'/>"
               "<table:table-row table:number-rows-repeated='9'>"
               "<table:table-cell "
               "table:number-columns-repeated='9'><text:p>a</text:p><text:p>b</text:p></table:table-cell>"
               "<table:covered-table-cell><text:p>x</text:p></table:covered-table-cell>"
               "<table:table-cell><text:p>c</text:p></table:table-cell></table:table-row></"
               "table:table><text:p>d</text:p>"),
        u"a\nb\nc\nd\n");
}

TEST(OpenDocumentText, leavesOutRowsAndCellsThatAreNotVisible) {
    auto table = [](const std::string& row, const std::string& cell) {
        return "<table:table><table:table-row" + row +
               "><table:table-cell><text:p>a</text:p></table:table-cell>" + "<table:table-cell" + cell +
               "><text:p>b</text:p></table:table-cell></table:table-row></table:table>" +
               "<text:p>c</text:p>";
    };
    EXPECT_EQ(textOf(table("", "")), u"a\nb\nc\n");
    EXPECT_EQ(textOf(table(" table:visibility='visible'", "")), u"a\nb\nc\n");
    EXPECT_EQ(textOf(table(" table:visibility='collapse'", "")), u"c\n");
    EXPECT_EQ(textOf(table(" table:visibility='filter'", "")), u"c\n");
    EXPECT_EQ(textOf(table("", " table:visibility='collapse'")), u"a\nc\n");
}

TEST(OpenDocumentText, setsBoxesBehindTheirParagraphAndNotesBehindTheStory) {
    constexpr std::string_view kBox =
        "<draw:frame><draw:text-box><text:p>box</text:p></draw:text-box></draw:frame>";
    constexpr std::string_view kNote = "<text:note><text:note-citation>1</text:note-citation>"
                                       "<text:note-body><text:p>note</text:p></text:note-body></text:note>";
    std::string box(kBox), note(kNote);
    EXPECT_EQ(textOf("<text:p>a" + box + "b</text:p><text:p>c</text:p>"), u"ab\nbox\nc\n");
    EXPECT_EQ(textOf("<text:p>a" + note + "b</text:p><text:p>c</text:p>"), u"ab\nc\nnote\n");
    EXPECT_EQ(textOf(box + "<text:p>a</text:p>"), u"a\nbox\n");
    EXPECT_EQ(
        textOf("<text:p>a <draw:custom-shape><text:p>x" + note + "</text:p></draw:custom-shape> b</text:p>"),
        u"a b\nx\nnote\n");
    EXPECT_EQ(textOf("<text:p>a<text:span>b <text:note><text:note-body><text:p>n" + box +
                     "</text:p></text:note-body></text:note> c</text:span></text:p>"),
              u"ab c\nn\nbox\n");
}

TEST(OpenDocumentText, readsAParagraphInAParagraphAsABox) {
    EXPECT_EQ(textOf("<text:p>a <text:p>b</text:p> c</text:p><text:p>d</text:p>"), u"a c\nb\nd\n");
}

TEST(OpenDocumentText, breaksPages) {
    constexpr std::string_view kStyles =
        "<office:styles><style:style style:name='Break' style:family='paragraph'>"
        "<style:paragraph-properties fo:break-before='page'/></style:style>"
        "<style:style style:name='Child' style:family='paragraph' style:parent-style-name='Break'/>"
        "<style:style style:name='No' style:family='paragraph' style:parent-style-name='Break'>"
        "<style:paragraph-properties fo:break-before='auto'/></style:style>"
        "<style:style style:name='After' style:family='paragraph'><style:paragraph-properties "
        "fo:break-after='page'/></style:style>"
        "<style:style style:name='Column' style:family='paragraph'><style:paragraph-properties "
        "fo:break-before='column'/></style:style>"
        "<style:style style:name='Master' style:family='paragraph' "
        "style:master-page-name='First'/></office:styles>";
    expectTexts(
        {
            {"before", "<text:p>a</text:p><text:p text:style-name='Break'>b</text:p>", u"a\n\fb\n"},
            {"not before the first", "<text:p text:style-name='Break'>b</text:p>", u"b\n"},
            {"inherited", "<text:p>a</text:p><text:p text:style-name='Child'>b</text:p>", u"a\n\fb\n"},
            {"taken back", "<text:p>a</text:p><text:p text:style-name='No'>b</text:p>", u"a\nb\n"},
            {"after", "<text:p text:style-name='After'>a</text:p><text:p>b</text:p>", u"a\n\fb\n"},
            {"not after the last", "<text:p text:style-name='After'>a</text:p>", u"a\n"},
            {"after and before is one",
             "<text:p text:style-name='After'>a</text:p><text:p text:style-name='Break'>b</text:p>",
             u"a\n\fb\n"},
            {"columns", "<text:p>a</text:p><text:p text:style-name='Column'>b</text:p>", u"a\nb\n"},
            {"another master page", "<text:p>a</text:p><text:p text:style-name='Master'>b</text:p>",
             u"a\n\fb\n"},
            {"not in cells",
             "<text:p>a</text:p><table:table><table:table-row><table:table-cell><text:p "
             "text:style-name='Break'>b</text:p>"
             "</table:table-cell></table:table-row></table:table>",
             u"a\nb\n"},
            {"not in boxes",
             "<text:p>a<draw:text-box><text:p text:style-name='Break'>b</text:p></draw:text-box></text:p>",
             u"a\nb\n"},
        },
        kStyles);
}

} // namespace

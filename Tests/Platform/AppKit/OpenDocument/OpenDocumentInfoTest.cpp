// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OpenDocument/OpenDocumentTesting.h"

namespace {

using namespace OpenDocumentTesting;

DocumentInfo infoOf(std::string_view meta) {
    return contentsOf(flat("", "<office:meta>" + std::string(meta) + "</office:meta>")).info;
}

TEST(OpenDocumentInfo, isTakenFromItsElements) {
    DocumentInfo info =
        infoOf("<meta:generator>g</meta:generator><dc:title> A \xE2\x82\xAC title\n</dc:title>"
               "<dc:subject>s</dc:subject><dc:description>d</dc:description>"
               "<meta:keyword>k, l</meta:keyword><meta:keyword/><meta:keyword>m</meta:keyword>"
               "<meta:initial-creator>Ann</meta:initial-creator><dc:creator>Bob</dc:creator>"
               "<meta:creation-date>2001-01-01T00:01:00Z</meta:creation-date>"
               "<dc:date>2001-01-02T00:00:00.5Z</dc:date>");
    EXPECT_EQ(info.title, u"A \u20AC title");
    EXPECT_EQ(info.subject, u"s");
    EXPECT_EQ(info.comment, u"d");
    EXPECT_EQ(info.keywords, (std::vector<std::u16string>{u"k, l", u"m"}));
    EXPECT_EQ(info.author, u"Ann");
    EXPECT_EQ(info.editor, u"Bob");
    EXPECT_EQ(info.creationTime, 60.0);
    EXPECT_EQ(info.modificationTime, 86400.5);
    EXPECT_EQ(info.converted, -1);
}

TEST(OpenDocumentInfo, namesTheLastEditorAsAuthorWhenNoOtherIsNamed) {
    EXPECT_EQ(infoOf("<dc:creator>Bob</dc:creator>").author, u"Bob");
    EXPECT_EQ(infoOf("<meta:initial-creator>Ann</meta:initial-creator><dc:creator>Bob</dc:creator>").author,
              u"Ann");
    EXPECT_EQ(infoOf("<dc:creator>Bob</dc:creator><meta:initial-creator>Ann</meta:initial-creator>").author,
              u"Ann");
}

TEST(OpenDocumentInfo, takesWhatUsersDefineUnderKnownNames) {
    DocumentInfo info =
        infoOf("<meta:user-defined meta:name='Company'>c</meta:user-defined>"
               "<meta:user-defined meta:name='manager'>m</meta:user-defined>"
               "<meta:user-defined meta:name='Category'>g</meta:user-defined>"
               "<meta:user-defined meta:name='Copyright'>r</meta:user-defined>"
               "<meta:user-defined meta:name='Info 1'>x</meta:user-defined>"
               "<meta:user-defined meta:name='Company'><dc:title>t</dc:title></meta:user-defined>");
    EXPECT_EQ(info.company, u"c");
    EXPECT_EQ(info.manager, u"m");
    EXPECT_EQ(info.category, u"g");
    EXPECT_EQ(info.copyright, u"r");
}

TEST(OpenDocumentInfo, isEmptyWithoutElements) {
    DocumentInfo info = infoOf("");
    EXPECT_EQ(info.title, u"");
    EXPECT_FALSE(info.creationTime || info.modificationTime || info.paperSize || info.leftMargin ||
                 info.topMargin);
}

constexpr std::string_view kLayouts =
    "<office:automatic-styles>"
    "<style:page-layout style:name='A4'><style:page-layout-properties fo:page-width='21cm' "
    "fo:page-height='297mm'"
    " fo:margin='1in' fo:margin-left='36pt' fo:margin-right='3pc'/>"
    "<style:header-style><style:header-footer-properties "
    "fo:margin-bottom='9in'/></style:header-style></style:page-layout>"
    "<style:page-layout style:name='Letter'><style:page-layout-properties fo:page-width='8.5in' "
    "fo:page-height='11inch'"
    " fo:margin-top='96px'/></style:page-layout>"
    "<style:style style:name='P1' style:family='paragraph' style:master-page-name='Wide'/>"
    "</office:automatic-styles>";

DocumentInfo pageOf(std::string_view masterPages, std::string_view text) {
    std::string masters = "<office:master-styles>" + std::string(masterPages) + "</office:master-styles>";
    return contentsOf(flat(text, std::string(kLayouts) + masters)).info;
}

TEST(OpenDocumentInfo, hasThePageOfTheFirstParagraph) {
    constexpr std::string_view kMasters =
        "<style:master-page style:name='Wide' style:page-layout-name='Letter'/>"
        "<style:master-page style:name='Standard' style:page-layout-name='A4'>"
        "<style:header><text:p>x</text:p></style:header></style:master-page>";
    DocumentInfo info = pageOf(kMasters, "<text:p>a</text:p><text:p text:style-name='P1'>b</text:p>");
    ASSERT_TRUE(info.paperSize);
    EXPECT_NEAR(info.paperSize->width, 595.276, 0.001);
    EXPECT_NEAR(info.paperSize->height, 841.89, 0.001);
    EXPECT_EQ(info.leftMargin, 36);
    EXPECT_EQ(info.rightMargin, 36);
    EXPECT_EQ(info.topMargin, 72);
    EXPECT_EQ(info.bottomMargin, 72);

    info = pageOf(kMasters, "<text:p text:style-name='P1'>b</text:p>");
    ASSERT_TRUE(info.paperSize);
    EXPECT_EQ(info.paperSize->width, 612);
    EXPECT_EQ(info.paperSize->height, 792);
    EXPECT_EQ(info.topMargin, 72);
    EXPECT_FALSE(info.leftMargin);
}

TEST(OpenDocumentInfo, hasTheFirstPageWhenNoneIsStandard) {
    DocumentInfo info = pageOf("<style:master-page style:name='One' style:page-layout-name='Letter'/>"
                               "<style:master-page style:name='Two' style:page-layout-name='A4'/>",
                               "");
    ASSERT_TRUE(info.paperSize);
    EXPECT_EQ(info.paperSize->width, 612);
    EXPECT_FALSE(
        pageOf("<style:master-page style:name='One' style:page-layout-name='Nowhere'/>", "").paperSize);
}

} // namespace

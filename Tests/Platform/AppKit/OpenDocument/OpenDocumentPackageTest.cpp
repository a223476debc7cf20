// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OpenDocument/OpenDocumentTesting.h"

namespace {

using namespace OpenDocumentTesting;

const std::string kContent = rooted("document-content", body("<text:p>text</text:p>"));

ReadStatus statusOf(std::string_view bytes) {
    DocumentContents contents;
    return read(bytes, contents);
}

TEST(OpenDocumentPackage, joinsItsParts) {
    std::string content = rooted(
        "document-content",
        automaticStyles(
            "<style:style style:name='P1' style:family='paragraph' style:parent-style-name='Secret'/>") +
            body("<text:p>a</text:p><text:p text:style-name='P1'>x</text:p>"));
    std::string styles = rooted("document-styles",
                                "<office:styles><style:style style:name='Secret' style:family='paragraph'>"
                                "<style:text-properties text:display='none'/></style:style></office:styles>");
    std::string meta = rooted("document-meta", "<office:meta><dc:title>t</dc:title></office:meta>");
    DocumentContents contents = contentsOf(package(content, styles, meta));
    EXPECT_EQ(contents.text, u"a\n");
    EXPECT_EQ(contents.info.title, u"t");
    EXPECT_EQ(contents.info.converted, -1);
}

TEST(OpenDocumentPackage, replacesStylesByThoseOfTheContent) {
    auto named = [](std::string_view display) {
        return automaticStyles(
            "<style:style style:name='P1' style:family='paragraph'><style:text-properties text:display='" +
            std::string(display) + "'/></style:style>");
    };
    std::string content =
        rooted("document-content", named("true") + body("<text:p text:style-name='P1'>a</text:p>"));
    EXPECT_EQ(contentsOf(package(content, rooted("document-styles", named("none")))).text, u"a\n");
}

TEST(OpenDocumentPackage, takesEachPartForWhatItIs) {
    std::string all = body("<text:p>x</text:p>") + "<office:meta><dc:title>x</dc:title></office:meta>";
    DocumentContents contents = contentsOf(package(kContent, rooted("document-styles", all),
                                                   rooted("document-meta", body("<text:p>x</text:p>"))));
    EXPECT_EQ(contents.text, u"text\n");
    EXPECT_EQ(contents.info.title, u"");
}

TEST(OpenDocumentPackage, isKnownByItsTypeOrItsBody) {
    std::string spreadsheet = rooted("document-content", "<office:body><office:spreadsheet/></office:body>");
    struct {
        std::string type, content;
        ReadStatus status;
    } const cases[] = {
        {"application/vnd.oasis.opendocument.text", kContent, ReadStatus::read},
        {"application/vnd.oasis.opendocument.text\n", kContent, ReadStatus::read},
        {"application/vnd.oasis.opendocument.text-template", kContent, ReadStatus::read},
        {"application/vnd.oasis.opendocument.text-master", kContent, ReadStatus::read},
        {"application/vnd.oasis.opendocument.text-web", kContent, ReadStatus::read},
        {"", kContent, ReadStatus::read},
        {"something else", kContent, ReadStatus::read},
        {"application/vnd.oasis.opendocument.spreadsheet", kContent, ReadStatus::wrongKind},
        {"application/vnd.oasis.opendocument.presentation", kContent, ReadStatus::wrongKind},
        {"application/vnd.sun.xml.calc", kContent, ReadStatus::wrongKind},
        {"application/vnd.oasis.opendocument.text", spreadsheet, ReadStatus::wrongKind},
        {"", spreadsheet, ReadStatus::wrongKind},
        {"", "no XML", ReadStatus::wrongKind},
        {"", "<html><p>text</p></html>", ReadStatus::wrongKind},
    };
    for (const auto& c : cases)
        EXPECT_EQ(statusOf(package(c.content, {}, {}, c.type)), c.status) << c.type << c.content;
}

TEST(OpenDocumentPackage, withoutContentIsAnEmptyDocument) {
    ZipWriter zip;
    zip.add("mimetype", kTextType);
    zip.add("meta.xml", rooted("document-meta", "<office:meta><dc:title>t</dc:title></office:meta>"));
    DocumentContents contents = contentsOf(zip.finish());
    EXPECT_EQ(contents.text, u"");
    EXPECT_EQ(contents.info.title, u"t");
}

TEST(OpenDocumentPackage, isNeitherOfOtherFiles) {
    ZipWriter other;
    other.add("word/document.xml", "<w/>");
    for (const std::string& bytes :
         {other.finish(), std::string(), std::string("plain text"), std::string("{\\rtf1 text}"),
          std::string("<html><body>text</body></html>"), std::string("PK\x03\x04")}) {
        EXPECT_EQ(statusOf(bytes), ReadStatus::wrongKind) << bytes;
    }
}

TEST(OpenDocumentPackage, tellsWhenItIsEncrypted) {
    constexpr std::string_view kManifest =
        "<manifest:manifest xmlns:manifest='urn:oasis:names:tc:opendocument:xmlns:manifest:1.0'>"
        "<manifest:file-entry "
        "manifest:full-path='content.xml'><manifest:encryption-data/></manifest:file-entry>"
        "</manifest:manifest>";
    for (const char* type : {"application/vnd.oasis.opendocument.text", ""}) {
        ZipWriter zip;
        if (*type) zip.add("mimetype", type);
        zip.add("content.xml", "\x8F\x02\xD1 no XML");
        zip.add("META-INF/manifest.xml", kManifest);
        EXPECT_EQ(statusOf(zip.finish()), ReadStatus::locked) << type;
    }

    ZipWriter whole;
    whole.add("mimetype", kTextType);
    whole.add("encrypted-package", "\x8F\x02\xD1");
    whole.add("META-INF/manifest.xml", kManifest);
    EXPECT_EQ(statusOf(whole.finish()), ReadStatus::locked);

    ZipWriter readable;
    readable.add("mimetype", kTextType);
    readable.add("content.xml", kContent);
    readable.add("META-INF/manifest.xml", kManifest);
    EXPECT_EQ(statusOf(readable.finish()), ReadStatus::read);
}

TEST(OpenDocumentPackage, leavesTheContentsAloneWhenItIsNone) {
    DocumentContents contents;
    contents.text = u"before";
    std::string bytes = package(
        "no XML", {}, rooted("document-meta", "<office:meta><dc:title>t</dc:title></office:meta>"), "");
    EXPECT_EQ(read(bytes, contents), ReadStatus::wrongKind);
    EXPECT_EQ(contents.text, u"before");
    EXPECT_EQ(contents.info.title, u"");
}

TEST(OpenDocumentPackage, readsTheFormatsPredecessor) {
    constexpr std::string_view kOld =
        "<?xml version='1.0'?><!DOCTYPE office:document-content PUBLIC '-//Example//DTD Document 1.0//EN' "
        "'office.dtd'>"
        "<office:document-content xmlns:office='http://openoffice.org/2000/office' "
        "xmlns:text='http://openoffice.org/2000/text'"
        " xmlns:style='http://openoffice.org/2000/style' xmlns:fo='http://www.w3.org/1999/XSL/Format' "
        "office:class='text'>"
        "<office:automatic-styles><style:style style:name='P1' style:family='paragraph'>"
        "<style:properties fo:break-before='page'/></style:style><text:list-style style:name='L1'>"
        "<text:list-level-style-number text:level='1' style:num-format='1' "
        "style:num-suffix='.'/></text:list-style>"
        "</office:automatic-styles><office:body><text:p>a<text:tab-stop/>b<text:footnote>"
        "<text:footnote-citation>1</text:footnote-citation><text:footnote-body><text:p>n</text:p></"
        "text:footnote-body>"
        "</text:footnote></text:p><text:ordered-list "
        "text:style-name='L1'><text:list-item><text:p>c</text:p></text:list-item>"
        "</text:ordered-list><text:p text:style-name='P1'>d</text:p></office:body></office:document-content>";
    for (const char* type : {"application/vnd.sun.xml.writer", ""}) {
        EXPECT_EQ(contentsOf(package(kOld, {}, {}, type)).text, u"a\tb\n\t1.\tc\n\fd\nn\n") << type;
    }
    std::string sheet(kOld);
    sheet.replace(sheet.find("'text'>"), 6, "'spreadsheet'");
    EXPECT_EQ(statusOf(package(sheet, {}, {}, "")), ReadStatus::wrongKind);
}

TEST(OpenDocumentFlat, isKnownByItsBody) {
    EXPECT_EQ(contentsOf(flat("<text:p>a</text:p>")).text, u"a\n");
    EXPECT_EQ(contentsOf("\xEF\xBB\xBF" + flat("<text:p>a</text:p>")).text, u"a\n");
    EXPECT_EQ(statusOf(rooted("document", "<office:body><office:spreadsheet/></office:body>")),
              ReadStatus::wrongKind);
    EXPECT_EQ(statusOf(rooted("document", "")), ReadStatus::wrongKind);
}

} // namespace

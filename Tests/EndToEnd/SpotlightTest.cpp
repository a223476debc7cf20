// SPDX-License-Identifier: Apache-2.0
//
// Files of any kind through the program: their distinct words.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/WebKit/WebArchive.h"
#include "Tests/Support/DocxWriter.h"
#include "Tests/Support/ImageWriter.h"
#include "Tests/Support/MediaWriter.h"
#include "Tests/Support/PDFWriter.h"
#include "Tests/Support/WordDocumentWriter.h"
#include "Tests/Support/ZipWriter.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class Spotlight : public EndToEnd {
protected:
    // The record of a document that is read without complaint.
    NSDictionary read(const std::string& file) const {
        const ToolResult result = request("SpotlightPath", file);
        EXPECT_EQ(result.errors, "") << file;
        return recordOf(result.output);
    }
    std::string termsOf(const std::string& name, std::string_view bytes) const {
        return stringIn(read(write(name, bytes)), u"string");
    }
};

TEST_F(Spotlight, TextIsEachDistinctWordOnceInTheOrderOfTheIndex) {
    const NSDictionary record = read(write("a.txt", "To be or not to be\n"));
    EXPECT_EQ(record.count(), 6u);
    EXPECT_EQ(stringIn(record, u"string"), "be not or to ");
    EXPECT_EQ(stringIn(record, u"title"), "");
    EXPECT_EQ(stringIn(record, u"author"), "");
    EXPECT_EQ(stringIn(record, u"url"), "");
    EXPECT_EQ(record.objectForKey(NSString(u"partsCount")), NSNumber::withInt(0));
    EXPECT_EQ(record.get<NSDictionary>(NSString(u"otherAttributes")).count(), 0u);
}

TEST_F(Spotlight, AnEmptyDocumentIsASuccessWithoutText) {
    const NSDictionary record = read(write("empty", ""));
    EXPECT_EQ(record.count(), 6u);
    EXPECT_EQ(stringIn(record, u"string"), "");
}

TEST_F(Spotlight, ReadsTextInManyEncodings) {
    EXPECT_EQ(termsOf("a.txt", "Grüße aus Köln"), "aus grüsse köln ");
    EXPECT_EQ(termsOf("b.txt", "\xEF\xBB\xBF"
                               "Köln"),
              "köln ");
    EXPECT_EQ(termsOf("c.txt", std::string_view("\xFF\xFE"
                                                "K\0\xF6\0l\0n\0",
                                                10)),
              "köln ");
    EXPECT_EQ(termsOf("e.txt", "Gr\xFC\xDF"
                               "e aus K\xF6ln"),
              "aus grüsse köln ");
    EXPECT_EQ(termsOf("d.cpp", "int main() { return 0; }"), "0 int main return ");
}

TEST_F(Spotlight, ReadsDocumentsOfEveryReader) {
    EXPECT_EQ(termsOf("a.html", "<html><body><p>Seen <i>words</i><script>no</script></body></html>"),
              "seen words ");
    EXPECT_EQ(termsOf("a.rtf", "{\\rtf1 Rich text}"), "rich text ");
    DocxWriter docx;
    docx.body = paragraphs({"Office words"});
    EXPECT_EQ(termsOf("a.docx", docx.finish()), "office words ");
    EXPECT_EQ(termsOf("a.pdf", pdfOfPages({textAt(50, 700, "first"), textAt(50, 700, "second")})),
              "first second ");
    EXPECT_EQ(
        termsOf("a.fodt",
                "<?xml version=\"1.0\"?><office:document "
                "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
                "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
                "office:mimetype=\"application/vnd.oasis.opendocument.text\"><office:body>"
                "<office:text><text:p>Open words</text:p></office:text></office:body></office:document>"),
        "open words ");
    WordDocumentWriter word;
    word.paragraph(u"Old words");
    EXPECT_EQ(termsOf("a.doc", word.finish()), "old words ");
}

TEST_F(Spotlight, ReadsPackagesAndXMLForTheirWords) {
    ZipWriter sheet, slides, book, openSheet;
    sheet.add("xl/sharedStrings.xml", "<sst><si><t>Shared word</t></si></sst>");
    EXPECT_EQ(termsOf("a.xlsx", sheet.finish()), "shared word ");
    slides.add("ppt/slides/slide1.xml", "<s xmlns:a='a'><a:p><a:t>Slide</a:t></a:p></s>");
    EXPECT_EQ(termsOf("a.pptx", slides.finish()), "slide ");
    book.add("OEBPS/one.xhtml", "<html><body><p>Chapter</p></body></html>");
    EXPECT_EQ(termsOf("a.epub", book.finish()), "chapter ");
    openSheet.add("content.xml", "<d xmlns:t='t'><t:p>Cell</t:p></d>");
    for (const char* name : {"a.ods", "a.odp", "a.odg"})
        EXPECT_EQ(termsOf(name, openSheet.finish()), "cell ");
    EXPECT_EQ(termsOf("a.svg", "<svg><style>x</style><text>Drawn</text></svg>"), "drawn ");
    EXPECT_EQ(termsOf("a.fb2", "<FictionBook><body><p>Fiction</p></body><binary>QUI</binary></FictionBook>"),
              "fiction ");
    EXPECT_EQ(termsOf("a.xml", "<x a='no'>Value</x>"), "value ");
}

TEST_F(Spotlight, ReadsThePagesOfAWebArchive) {
    const auto page = [](const char* html, const char* type, const char* encoding) {
        return WebResource(NSData(html), NSURL::URLWithString(u"http://example.org/"),
                           NSString::fromUTF8(type), NSString::fromUTF8(encoding), nullptr);
    };
    const WebArchive frame(page("plain frame", "text/plain", "utf-8"), {}, {});
    const WebArchive archive(page("<p>K\xF6ln<script>no</script>", "text/html", "iso-8859-1"),
                             {page("body {}", "text/css", "utf-8")}, {frame});
    EXPECT_EQ(termsOf("a.webarchive", archive.data().bytes()), "frame köln plain ");
}

TEST_F(Spotlight, ReadsPlainFormatsAsTheyAre) {
    EXPECT_EQ(termsOf("a.csv", "Name,\"Ada\"\n1,2\n"), "1 2 ada name ");
    EXPECT_EQ(termsOf("a.json", R"({"key": "K\u00F6ln\nwest"})"), "key köln west ");
    EXPECT_EQ(termsOf("a.srt", "1\n00:00:01,000 --> 00:00:02,000\nHello <i>there</i>\n"), "hello there ");
    EXPECT_EQ(termsOf("a.md", "# Title\n"), "title ");
}

TEST_F(Spotlight, ReadsTheValuesOfMediaAndImages) {
    EXPECT_EQ(termsOf("a.mov", movieFile(atom("udta", atom("\xA9nam", languageText(0, "Song"))))), "song ");
    EXPECT_EQ(termsOf("a.jpg", jpegFile(iptcDataset(2, 105, "Headline") + iptcDataset(2, 25, "Key word"))),
              "headline key word ");
}

TEST_F(Spotlight, AFolderPassesTheTestOfExistence) {
    fs::create_directory(path("plain"));
    EXPECT_EQ(stringIn(read(path("plain")), u"string"), "");
    fs::create_directory(path("bundle.rtfd"));
    write("bundle.rtfd/TXT.rtf", "{\\rtf1 inside}");
    EXPECT_EQ(stringIn(read(path("bundle.rtfd")), u"string"), "inside ");
}

TEST_F(Spotlight, BytesOfNoKindHaveNoWords) {
    EXPECT_EQ(termsOf("a.bin", std::string_view("\0\1\2words\3\4", 10)), "");
}

TEST_F(Spotlight, ADamagedDocumentIsASuccessAndALineInTheLog) {
    const std::string file = write("a.pdf", "%PDF-1.4 and nothing else");
    const ToolResult result = request("SpotlightPath", file);
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "");
    EXPECT_EQ(logLines(result),
              std::vector<std::string>{"No text of " + file + ": it is damaged or of another kind"});
}

NSError spotlightError(const char16_t* message) {
    return NSError(NSString(u"" TEXTTOOL_HOST_DOMAIN), 42,
                   {{NSString(NSLocalizedDescriptionKey), NSString(message)}});
}

TEST_F(Spotlight, WhatCannotBeOpenedIsAnErrorAndThenASuccess) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const ToolResult result = request("SpotlightPath", path("pipe"));
    EXPECT_EQ(errorOf(result.output), spotlightError(u"Error extracting document")) << "the first report";
    request("SpotlightPath", path("pipe"), {{"OutPath", path("record")}});
    EXPECT_EQ(stringIn(recordOf(readFile(path("record"))), u"string"), "") << "the second report";
}

TEST_F(Spotlight, WithoutTheLibraryOfWordsThereIsNoIndex) {
    fs::create_directories(path("bin"));
    fs::copy_file(TEXTTOOL_PROGRAM, path("bin/texttool"));
    const std::string file = write("a.txt", "words");
    const ToolResult result =
        runTool({.arguments = {"-SpotlightPath", file}, .program = path("bin/texttool")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(errorOf(result.output), spotlightError(u"Error creating index"));
    EXPECT_EQ(logLines(result).front().find("The module “Unicode” can’t be loaded: "), 0u);
}

TEST_F(Spotlight, WithoutTheDecodersACompressedFileCannotBeAdded) {
    fs::create_directories(path("bin"));
    fs::create_directories(path("lib/texttool"));
    fs::copy_file(TEXTTOOL_PROGRAM, path("bin/texttool"));
    fs::copy_file(MODULE_FOLDER "/Unicode.so", path("lib/texttool/Unicode.so"));
    const ToolResult result = runTool({.arguments = {"-SpotlightPath", SAMPLES_FOLDER "/Kinds/plain.txt.gz"},
                                       .program = path("bin/texttool")});
    EXPECT_EQ(errorOf(result.output), spotlightError(u"Error extracting document"));
    EXPECT_NE(logLines(result).front().find("The module “Compression” can’t be loaded: "), std::string::npos);
}

} // namespace

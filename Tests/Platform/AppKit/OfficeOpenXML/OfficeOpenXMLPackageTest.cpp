// SPDX-License-Identifier: Apache-2.0
//
// Which packages are documents, and what becomes of damaged and hostile ones.
#include "Tests/Platform/AppKit/OfficeOpenXML/OfficeOpenXMLTesting.h"
#include "Tests/Support/CompoundFileWriter.h"

#include <chrono>

namespace {

struct Reading {
    ReadStatus status;
    std::string text;
};

Reading readBytes(std::string_view bytes) {
    DocumentContents contents;
    Deadline deadline(std::chrono::duration<double>(20));
    ReadStatus status = readOfficeOpenXML(bytes, deadline, contents);
    return {status, toUTF8(contents.text)};
}

std::string sampleParagraphs(size_t count) {
    std::string all;
    for (size_t i = 0; i < count; ++i) all += paragraphs({"paragraph " + std::to_string(i * 7919 % 10007)});
    return all;
}

TEST(OfficeOpenXMLPackage, readsBothFormsOfTheFormatAndAnyPlaceOfTheMainPart) {
    DocxWriter docx;
    docx.body = paragraphs({"text"});
    docx.styles = "<w:style w:styleId=\"S\"/>";
    for (bool strict : {false, true}) {
        for (const char* mainPart :
             {"word/document.xml", "word/document2.xml", "Other/Folder/main.xml", "top.xml"}) {
            docx.strict = strict;
            docx.mainPart = mainPart;
            EXPECT_EQ(textOf(docx), "text\n") << mainPart;
        }
    }
}

TEST(OfficeOpenXMLPackage, isReadWithoutRelationships) {
    DocxWriter docx;
    docx.body = paragraph(run("text") + "<w:r><w:footnoteReference w:id=\"1\"/></w:r>");
    ZipWriter zip;
    zip.add("Word\\Document.xml", docx.documentXML());
    zip.add("word/footnotes.xml",
            "<w:footnotes xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\">"
            "<w:footnote w:id=\"1\">" +
                paragraphs({"note"}) + "</w:footnote></w:footnotes>");
    Reading reading = readBytes(zip.finish());
    EXPECT_EQ(reading.status, ReadStatus::read);
    EXPECT_EQ(reading.text, "text\nnote\n");
}

TEST(OfficeOpenXMLPackage, isOfTheWrongKindWithoutATextDocument) {
    ZipWriter spreadsheet;
    spreadsheet.add(
        "_rels/.rels",
        "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"><Relationship"
        " Id=\"1\" "
        "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\""
        " Target=\"xl/workbook.xml\"/></Relationships>");
    spreadsheet.add("xl/workbook.xml",
                    "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"/>");
    ZipWriter other;
    other.add("content.xml", "<x/>");
    ZipWriter notXML;
    notXML.add("word/document.xml", "plain text");
    ZipWriter locked;
    locked.add("word/document.xml", DocxWriter().documentXML(), {true, false, false, 1});
    for (const std::string& bytes : {std::string(), std::string("plain text"), std::string("PK\3\4"),
                                     spreadsheet.finish(), other.finish(), notXML.finish(), locked.finish()})
        EXPECT_EQ(readBytes(bytes).status, ReadStatus::wrongKind) << bytes.substr(0, 200);
}

TEST(OfficeOpenXMLPackage, isLockedInACompoundFileThatSaysSo) {
    const std::string stream(5000, 'x');
    EXPECT_EQ(readBytes(CompoundFileWriter().stream("EncryptedPackage", stream).finish()).status,
              ReadStatus::locked);
    EXPECT_EQ(readBytes(CompoundFileWriter().stream("WordDocument", stream).finish()).status,
              ReadStatus::wrongKind);
}

TEST(OfficeOpenXMLPackage, yieldsTheTextBeforeACut) {
    DocxWriter docx;
    docx.body = sampleParagraphs(3000);
    const std::string whole = textOf(docx);
    for (bool deflate : {false, true}) {
        const std::string bytes = docx.finish({deflate, false, false, 0});
        size_t before = 0;
        for (size_t percent = 0; percent <= 100; ++percent) {
            Reading reading = readBytes(std::string_view(bytes).substr(0, bytes.size() * percent / 100));
            EXPECT_TRUE(whole.starts_with(reading.text)) << percent;
            EXPECT_GE(reading.text.size(), before) << percent;
            before = reading.text.size();
            EXPECT_TRUE(percent < 90 || before > whole.size() / 2) << percent;
        }
        EXPECT_EQ(before, whole.size());
    }
}

TEST(OfficeOpenXMLPackage, yieldsTheTextBeforeMalformedXML) {
    DocxWriter docx;
    docx.body = paragraphs({"one", "two"}) + "<w:p><w:r><w:t>three</w:p>" + paragraphs({"four"});
    EXPECT_EQ(textOf(docx), "one\ntwo\nthree");
}

TEST(OfficeOpenXMLPackage, stopsAtADocumentTypeDeclaration) {
    std::string entities = "<!ENTITY a \"ha\">";
    for (char c = 'b'; c <= 'z'; ++c)
        entities += std::string("<!ENTITY ") + c + " \"&" + char(c - 1) + ";&" + char(c - 1) + ";\">";
    ZipWriter zip;
    zip.add("word/document.xml",
            "<!DOCTYPE x [" + entities +
                "]><w:document xmlns:w=\"http://schemas.openxmlformats.org/wordprocessingml/2006/"
                "main\"><w:body>" +
                paragraphs({"&z;"}) + "</w:body></w:document>");
    EXPECT_EQ(readBytes(zip.finish()).status, ReadStatus::wrongKind);
}

TEST(OfficeOpenXMLPackage, standsDeepNestingOfAnyElement) {
    constexpr size_t kDepth = 100'000;
    for (const char* element : {"w:p", "w:r", "w:tbl", "w:txbxContent", "mc:AlternateContent", "w:sdt",
                                "w:del", "w:t", "w:rPr", "a:txBody"}) {
        DocxWriter docx;
        docx.body = paragraphs({"before"});
        for (size_t i = 0; i < kDepth; ++i) docx.body.append("<").append(element).append(">");
        Reading reading = readBytes(docx.finish());
        EXPECT_EQ(reading.status, ReadStatus::read) << element;
        EXPECT_TRUE(reading.text.starts_with("before\n")) << element;
    }
}

TEST(OfficeOpenXMLPackage, boundsTheTimeOfManySmallThings) {
    auto repeat = [](const std::string& text, size_t count) {
        std::string all;
        for (size_t i = 0; i < count; ++i) all += text;
        return all;
    };
    DocxWriter docx;
    docx.footnotes = "<w:footnote w:id=\"1\"><w:p>" + run(std::string(1 << 20, 'x')) + "</w:p></w:footnote>";
    docx.numbering = "<w:abstractNum w:abstractNumId=\"0\"><w:lvl w:ilvl=\"0\"><w:lvlText w:val=\"" +
                     repeat("%1", 1 << 16) + "\"/></w:lvl></w:abstractNum><w:num w:numId=\"1\"/>";
    docx.styles = repeat("<w:style w:styleId=\"a\"><w:basedOn w:val=\"a\"/></w:style>", 20'000);
    const std::string begin = "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>";
    docx.body = repeat(paragraph("<w:r><w:footnoteReference w:id=\"1\"/></w:r>",
                                 "<w:numPr><w:numId w:val=\"1\"/></w:numPr>"),
                       20'000) +
                repeat(paragraph(begin), 50'000) + repeat("<w:altChunk r:id=\"x\"/>", 50'000);
    Reading reading = readBytes(docx.finish());
    EXPECT_EQ(reading.status, ReadStatus::read);
    EXPECT_LT(reading.text.size(), size_t(8) << 20);
}

TEST(OfficeOpenXMLPackage, leavesOffAtTheDeadline) {
    DocxWriter docx;
    docx.body = paragraphs({"before"}) + "<w:p><w:r><w:t>" + std::string(32 << 20, 'x');
    const std::string bytes = docx.finish();
    DocumentContents contents;
    Deadline deadline(std::chrono::duration<double>(0.01));
    EXPECT_EQ(readOfficeOpenXML(bytes, deadline, contents), ReadStatus::read);
    EXPECT_TRUE(contents.text.starts_with(u"before\nxxx"));
    EXPECT_LT(contents.text.size(), size_t(32 << 20));
}

} // namespace

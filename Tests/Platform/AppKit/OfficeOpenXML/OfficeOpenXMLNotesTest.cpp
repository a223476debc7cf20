// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OfficeOpenXML/OfficeOpenXMLTesting.h"

namespace {

std::string note(const std::string& kind, const std::string& id, const std::string& text) {
    return "<w:" + kind + " w:id=\"" + id + "\"><w:p><w:r><w:" + kind + "Ref/></w:r>" + run(" " + text) +
           "</w:p></w:" + kind + ">";
}

std::string reference(const std::string& kind, const std::string& id, const std::string& more = "") {
    return "<w:r><w:" + kind + "Reference w:id=\"" + id + "\"" + more + "/></w:r>";
}

DocxWriter withNotes() {
    DocxWriter docx;
    docx.footnotes = "<w:footnote w:type=\"separator\" w:id=\"-1\"><w:p>" + run("----") +
                     "</w:p></w:footnote>" + note("footnote", "1", "first") +
                     note("footnote", "2", "second") + note("footnote", "3", "unused");
    docx.endnotes = note("endnote", "1", "end");
    return docx;
}

TEST(OfficeOpenXMLNotes, followTheStoryInTheOrderOfTheirReferences) {
    DocxWriter docx = withNotes();
    docx.body = paragraph(run("a") + reference("footnote", "2") + run("b") + reference("endnote", "1")) +
                paragraph(run("c") + reference("footnote", "1"));
    EXPECT_EQ(textOf(docx), "ab\nc\nsecond\nend\nfirst\n");
}

TEST(OfficeOpenXMLNotes, areReadOnceAndOnlyWhenReferredTo) {
    DocxWriter docx = withNotes();
    docx.body =
        paragraph(run("a") + reference("footnote", "1") + reference("footnote", "1") +
                  reference("footnote", "-1") + reference("footnote", "99") + reference("endnote", "2"));
    EXPECT_EQ(textOf(docx), "a\nfirst\n");
}

TEST(OfficeOpenXMLNotes, stayOutWithHiddenAndDeletedReferences) {
    DocxWriter docx = withNotes();
    docx.body = paragraph(run("a") + "<w:del>" + reference("footnote", "1") + "</w:del>" +
                          "<w:r><w:rPr><w:vanish/></w:rPr><w:footnoteReference w:id=\"2\"/></w:r>");
    EXPECT_EQ(textOf(docx), "a\n");
}

TEST(OfficeOpenXMLNotes, loseMarksOfTheWritersOwn) {
    DocxWriter docx = withNotes();
    docx.body = paragraph(
        run("a") + "<w:r><w:footnoteReference w:id=\"1\" w:customMarkFollows=\"1\"/><w:t>*</w:t></w:r>" +
        run("b"));
    EXPECT_EQ(textOf(docx), "ab\nfirst\n");
}

TEST(OfficeOpenXMLNotes, mayHaveParagraphsListsAndBoxesOfTheirOwn) {
    DocxWriter docx;
    docx.numbering = "<w:abstractNum w:abstractNumId=\"0\"><w:lvl w:ilvl=\"0\"><w:start w:val=\"1\"/>"
                     "<w:lvlText w:val=\"%1.\"/></w:lvl></w:abstractNum>"
                     "<w:num w:numId=\"1\"><w:abstractNumId w:val=\"0\"/></w:num>";
    const std::string inList = "<w:numPr><w:numId w:val=\"1\"/></w:numPr>";
    docx.footnotes =
        "<w:footnote w:id=\"1\">" + paragraphs({"one"}) + paragraph(run("two"), inList) +
        paragraph("<w:r><w:txbxContent>" + paragraphs({"box"}) + "</w:txbxContent></w:r>" + run("three")) +
        "</w:footnote>";
    docx.body = paragraph(run("a") + reference("footnote", "1")) + paragraph(run("item"), inList);
    EXPECT_EQ(textOf(docx), "a\n\t1.\titem\none\n\t1.\ttwo\nthree\nbox\n");
}

TEST(OfficeOpenXMLNotes, ofABrokenPartAreReadUpToTheDamage) {
    DocxWriter docx = withNotes();
    docx.footnotes =
        note("footnote", "1", "first") + "<w:footnote w:id=\"2\"><w:p>" + run("second") + "</wrong>";
    docx.body = paragraph(run("a") + reference("footnote", "1") + reference("footnote", "2"));
    EXPECT_EQ(textOf(docx), "a\nfirst\nsecond\n");
}

} // namespace

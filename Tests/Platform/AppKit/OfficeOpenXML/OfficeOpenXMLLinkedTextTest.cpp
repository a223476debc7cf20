// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OfficeOpenXML/OfficeOpenXMLTesting.h"

namespace {

TEST(OfficeOpenXMLLinkedText, takesDiagramsFromTheirPartsOnce) {
    DocxWriter docx;
    docx.otherRelationships = "<Relationship Id=\"d\" Type=\"x/diagramData\" Target=\"diagrams/data1.xml\"/>";
    docx.others["word/diagrams/data1.xml"] =
        "<dgm:dataModel xmlns:dgm=\"http://schemas.openxmlformats.org/drawingml/2006/diagram\""
        " xmlns:a=\"http://schemas.openxmlformats.org/drawingml/2006/"
        "main\"><dgm:pt><dgm:t><a:p><a:r><a:t>one</a:t>"
        "</a:r></a:p></dgm:t></dgm:pt><dgm:pt><dgm:t><a:p/></dgm:t></"
        "dgm:pt><dgm:pt><dgm:t><a:p><a:r><a:t>two</a:t>"
        "</a:r></a:p></dgm:t></dgm:pt></dgm:dataModel>";
    const std::string diagram = "<w:r><w:drawing><dgm:relIds r:dm=\"d\"/></w:drawing></w:r>";
    docx.body = paragraph(run("a") + diagram + run("b")) + paragraph(run("c") + diagram);
    EXPECT_EQ(textOf(docx), "ab\none\ntwo\nc\n");
}

TEST(OfficeOpenXMLLinkedText, showsDocumentsOfOtherKindsInTheirPlaces) {
    DocxWriter docx;
    docx.otherRelationships = "<Relationship Id=\"t\" Type=\"x/aFChunk\" Target=\"/chunks/a.txt\"/>"
                              "<Relationship Id=\"r\" Type=\"x/aFChunk\" Target=\"../chunks/b.rtf\"/>"
                              "<Relationship Id=\"m\" Type=\"x/aFChunk\" Target=\"../chunks/c.mht\"/>";
    docx.others["chunks/a.txt"] = "plain";
    docx.others["chunks/b.rtf"] = "{\\rtf1 rich\\par}";
    docx.others["chunks/c.mht"] = "MIME-Version: 1.0\r\n\r\nmail";
    docx.body = paragraphs({"a"}) +
                "<w:altChunk r:id=\"t\"/><w:altChunk r:id=\"m\"/><w:altChunk r:id=\"none\"/>"
                "<w:altChunk r:id=\"r\"/><w:altChunk r:id=\"t\"/>" +
                paragraphs({"b"});
    EXPECT_EQ(textOf(docx), "a\nplain\nmail\nrich\nb\n");
}

// A document with one chunk, between two paragraphs; the package says its type unless it is "".
std::string textWithChunk(const std::string& name, const std::string& bytes, const std::string& type = "") {
    DocxWriter docx;
    docx.otherRelationships = "<Relationship Id=\"c\" Type=\"x/aFChunk\" Target=\"" + name + "\"/>";
    docx.others["word/" + name] = bytes;
    docx.others["[Content_Types].xml"] =
        "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
        "<Default Extension=\"XML\" ContentType=\"application/xml\"/>" +
        (type.empty() ? ""
                      : "<Override PartName=\"/Word/" + name + "\" ContentType=\"" + type + "; x=y\"/>") +
        "</Types>";
    docx.body = paragraphs({"a"}) + "<w:altChunk r:id=\"c\"/>" + paragraphs({"b"});
    return textOf(docx);
}

std::string inner(const std::string& body) {
    DocxWriter docx;
    docx.body = body;
    return docx.finish();
}

TEST(OfficeOpenXMLLinkedText, isOfTheKindThatThePackageSays) {
    EXPECT_EQ(textWithChunk("c.dat", "<p>page", "text/HTML"), "a\npage\nb\n");
    EXPECT_EQ(textWithChunk("c.xml", "<p>page", "application/xhtml+xml"), "a\npage\nb\n");
    EXPECT_EQ(textWithChunk("c.dat", "<p>text", "text/plain"), "a\n<p>text\nb\n");
    EXPECT_EQ(textWithChunk("c.dat", "{\\rtf1 rich}", "application/rtf"), "a\nrich\nb\n");
    EXPECT_EQ(
        textWithChunk("c.dat", inner(paragraphs({"inner"})),
                      "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"),
        "a\ninner\nb\n");
}

TEST(OfficeOpenXMLLinkedText, isOfTheKindOfItsBytesWhereThePackageSaysNone) {
    EXPECT_EQ(textWithChunk("c.dat", "<html><p>page"), "a\npage\nb\n");
    EXPECT_EQ(textWithChunk("c.xml", "<?xml version=\"1.0\"?><html><body>page</body></html>"),
              "a\npage\nb\n");
    EXPECT_EQ(textWithChunk("c.dat", "{\\rtf1 rich}"), "a\nrich\nb\n");
    EXPECT_EQ(textWithChunk("c.docx", inner(paragraphs({"inner"}))), "a\ninner\nb\n");
    EXPECT_EQ(textWithChunk("c.rtf", inner(paragraphs({"inner"})), "application/rtf"), "a\ninner\nb\n");
    // What the bytes do not tell the name does, in any case.
    EXPECT_EQ(textWithChunk("c.HTML", "<p>page"), "a\npage\nb\n");
    EXPECT_EQ(textWithChunk("c.Txt", "<p>text"), "a\n<p>text\nb\n");
    EXPECT_EQ(textWithChunk("c.dat", "\x89PNG"), "a\nb\n");
}

TEST(OfficeOpenXMLLinkedText, ofASavedWebPageIsItsPage) {
    const std::string page = "MIME-Version: 1.0\r\nContent-Type: multipart/related; boundary=\"b\"\r\n\r\n"
                             "--b\r\nContent-Type: text/html; charset=\"windows-1251\"\r\n"
                             "Content-Transfer-Encoding: quoted-printable\r\n\r\n"
                             "<html><meta charset=3Dutf-8><p>=E9 long =\r\nline</html>\r\n"
                             "--b\r\nContent-Type: image/png\r\nContent-Transfer-Encoding: base64\r\n\r\nAAAA"
                             "\r\n--b--\r\n";
    EXPECT_EQ(textWithChunk("c.mht", page), "a\nй long line\nb\n");
    EXPECT_EQ(textWithChunk("c.dat", page.substr(19), "message/rfc822"), "a\nй long line\nb\n");
    EXPECT_EQ(textWithChunk("c.dat", "Content-Transfer-Encoding: base64\r\n\r\ndGV4dA==", "message/rfc822"),
              "a\ntext\nb\n");
    EXPECT_EQ(textWithChunk("c.mht", "MIME-Version: 1.0\r\nContent-Type: image/png\r\n\r\nx"), "a\nb\n");
}

TEST(OfficeOpenXMLLinkedText, ofDocumentsInOneAnotherIsBounded) {
    DocxWriter docx;
    docx.body = paragraphs({"innermost"});
    for (int depth = 8; depth > 0; --depth) {
        DocxWriter outer;
        outer.body = paragraphs({std::to_string(depth)}) + "<w:altChunk r:id=\"c\"/>";
        outer.otherRelationships = "<Relationship Id=\"c\" Type=\"x/aFChunk\" Target=\"c.docx\"/>";
        outer.others["word/c.docx"] = docx.finish();
        docx = outer;
    }
    EXPECT_EQ(textOf(docx), "1\n2\n3\n4\n5\n");

    // Many in many stop where the allowance for all of them ends.
    docx = DocxWriter();
    docx.body = paragraphs({"x"});
    for (int depth = 0; depth < 3; ++depth) {
        DocxWriter outer;
        for (int i = 0; i < 20; ++i) {
            const std::string name = "c" + std::to_string(i);
            outer.body += "<w:altChunk r:id=\"" + name + "\"/>";
            outer.otherRelationships +=
                "<Relationship Id=\"" + name + "\" Type=\"x/aFChunk\" Target=\"" + name + "\"/>";
            outer.others["word/" + name] = docx.finish();
        }
        docx = outer;
    }
    const std::string text = textOf(docx);
    EXPECT_GT(text.size(), size_t(400));
    EXPECT_LE(text.size(), size_t(512));
}

} // namespace

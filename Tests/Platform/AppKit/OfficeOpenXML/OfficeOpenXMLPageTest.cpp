// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OfficeOpenXML/OfficeOpenXMLTesting.h"

namespace {

struct Case {
    const char* name;
    std::string body, text;
};

void expectTexts(const std::vector<Case>& cases) {
    for (const Case& c : cases) EXPECT_EQ(textOf(c.body), c.text) << c.name;
}

TEST(OfficeOpenXMLPages, beginsAPageBeforeAParagraphThatAsksForOne) {
    DocxWriter docx;
    docx.styles =
        "<w:style w:type=\"paragraph\" w:styleId=\"P\"><w:pPr><w:pageBreakBefore/></w:pPr></w:style>"
        "<w:style w:type=\"paragraph\" w:styleId=\"P2\"><w:basedOn w:val=\"P\"/></w:style>";
    const std::string own = "<w:pageBreakBefore/>", off = "<w:pageBreakBefore w:val=\"0\"/>";
    const std::string styled = "<w:pStyle w:val=\"P\"/>", inherited = "<w:pStyle w:val=\"P2\"/>";
    const std::string first = paragraphs({"a"}), box = "<w:r><w:txbxContent>" + first +
                                                       paragraph(run("b"), own) + "</w:txbxContent></w:r>";
    const std::vector<Case> cases = {
        {"own property", first + paragraph(run("b"), own), "a\n\fb\n"},
        {"not the first", paragraph(run("b"), own), "b\n"},
        {"style", first + paragraph(run("b"), styled), "a\n\fb\n"},
        {"inherited", first + paragraph(run("b"), inherited), "a\n\fb\n"},
        {"switched off", first + paragraph(run("b"), inherited + off), "a\nb\n"},
        {"empty", first + paragraph("", own), "a\n\f\n"},
        {"hidden", first + paragraph(run("b", "<w:vanish/>"), own + "<w:rPr><w:vanish/></w:rPr>"), "a\n"},
        {"not in cells", first + "<w:tbl><w:tr><w:tc>" + paragraph(run("b"), own) + "</w:tc></w:tr></w:tbl>",
         "a\nb\n"},
        {"not in boxes", paragraph(run("x") + box), "x\na\nb\n"},
    };
    for (const Case& c : cases) {
        docx.body = c.body;
        EXPECT_EQ(textOf(docx), c.text) << c.name;
    }
}

TEST(OfficeOpenXMLPages, beginsAPageWithASectionThatDoes) {
    auto section = [](const std::string& type) {
        return "<w:sectPr>" + (type.empty() ? "" : "<w:type w:val=\"" + type + "\"/>") + "</w:sectPr>";
    };
    auto three = [&](const std::string& second, const std::string& third) {
        return paragraph(run("a"), section("")) + paragraph(run("b"), section(second)) + paragraphs({"c"}) +
               section(third);
    };
    expectTexts({
        {"next page", three("", "nextPage"), "a\n\fb\n\fc\n"},
        {"odd and even", three("oddPage", "evenPage"), "a\n\fb\n\fc\n"},
        {"on the same page", three("continuous", "nextColumn"), "a\nb\nc\n"},
        {"mixed", three("continuous", "nextPage"), "a\nb\n\fc\n"},
        {"properties that never come", paragraph(run("a"), section("continuous")) + paragraphs({"b"}),
         "a\n\fb\n"},
        {"one break is enough",
         paragraph(run("a"), section("")) + paragraph(run("b"), "<w:pageBreakBefore/>") + section(""),
         "a\n\fb\n"},
        {"nothing behind", paragraph(run("a"), section("")) + section(""), "a\n"},
        {"box in the last paragraph",
         paragraph(run("a") + "<w:r><w:txbxContent>" + paragraphs({"x"}) + "</w:txbxContent></w:r>",
                   section("")) +
             paragraphs({"b"}) + section(""),
         "a\nx\n\fb\n"},
    });
}

} // namespace

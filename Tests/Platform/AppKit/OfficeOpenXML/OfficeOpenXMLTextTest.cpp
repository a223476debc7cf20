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

TEST(OfficeOpenXMLText, endsEachParagraphWithALineFeed) {
    expectTexts({{"none", "", ""},
                 {"one", paragraphs({"one"}), "one\n"},
                 {"two", paragraphs({"one", "two"}), "one\ntwo\n"},
                 {"empty ones", "<w:p/><w:p></w:p>" + paragraphs({"x"}), "\n\nx\n"},
                 {"several runs", "<w:p>" + run("a") + run("b ") + run("c") + "</w:p>", "ab c\n"}});
}

TEST(OfficeOpenXMLText, writesSpecialCharactersAndBreaks) {
    auto withRun = [](const std::string& content) { return paragraph("<w:r>" + content + "</w:r>"); };
    expectTexts({
        {"tab", withRun("<w:t>a</w:t><w:tab/><w:t>b</w:t>"), "a\tb\n"},
        {"positioned tab", withRun("<w:t>a</w:t><w:ptab/><w:t>b</w:t>"), "a\tb\n"},
        {"line break", withRun("<w:t>a</w:t><w:br/><w:t>b</w:t>"), "a\u2028b\n"},
        {"wrapping break", withRun("<w:t>a</w:t><w:br w:type=\"textWrapping\"/>"), "a\u2028\n"},
        {"carriage return", withRun("<w:t>a</w:t><w:cr/><w:t>b</w:t>"), "a\u2028b\n"},
        {"page break", withRun("<w:t>a</w:t><w:br w:type=\"page\"/><w:t>b</w:t>"), "a\fb\n"},
        {"column break", withRun("<w:t>a</w:t><w:br w:type=\"column\"/><w:t>b</w:t>"), "a\fb\n"},
        {"rendered break", withRun("<w:t>a</w:t><w:lastRenderedPageBreak/><w:t>b</w:t>"), "ab\n"},
        {"hyphens", withRun("<w:t>a</w:t><w:noBreakHyphen/><w:softHyphen/><w:t>b</w:t>"), "a\u2011\u00ADb\n"},
        {"symbol", withRun("<w:sym w:font=\"Symbol\" w:char=\"F061\"/>"), "α\n"},
        {"dingbat", withRun("<w:sym w:font=\"Wingdings\" w:char=\"F0FC\"/>"), "✓\n"},
        {"symbol of another font", withRun("<w:sym w:font=\"Arial\" w:char=\"20AC\"/>"), "€\n"},
        {"bad symbols",
         withRun("<w:sym/><w:sym w:char=\"\"/><w:sym w:char=\"D800\"/><w:sym w:char=\"12345\"/>"), "\n"},
        {"tab stops are no tabs", paragraph(run("a"), "<w:tabs><w:tab w:val=\"left\"/></w:tabs>"), "a\n"},
        {"characters beyond the first plane", paragraphs({"&#x1F600;"}), "\U0001F600\n"},
    });
}

TEST(OfficeOpenXMLText, keepsOuterWhiteSpaceOfTextOnlyWhereItIsAskedFor) {
    auto text = [](const std::string& attributes, const std::string& content) {
        return "<w:t" + attributes + ">" + content + "</w:t>";
    };
    const std::string preserve = " xml:space=\"preserve\"";
    auto document = [&](const std::string& p, const std::string& r, const std::string& t) {
        return "<w:p" + p + "><w:r" + r + ">" + text(t, "\n  a\n b ") + text("", "c") + "</w:r></w:p>";
    };
    expectTexts(
        {{"none", document("", "", ""), "a  bc\n"},
         {"text", document("", "", preserve), "   a  b c\n"},
         {"run", document("", preserve, ""), "   a  b c\n"},
         {"paragraph", document(preserve, "", ""), "   a  b c\n"},
         {"overridden", document(preserve, "", " xml:space=\"default\""), "a  bc\n"},
         {"all blank", "<w:p><w:r>" + text("", " ") + text(preserve, " ") + "</w:r></w:p>", " \n"},
         {"no-break space", "<w:p><w:r>" + text("", "&#xA0;a&#xA0;") + "</w:r></w:p>", "\u00A0a\u00A0\n"}});
}

TEST(OfficeOpenXMLText, endsEachParagraphOfACellAndNothingElseOfATable) {
    const std::string cell = "<w:tc><w:tcPr/>" + paragraphs({"a", "b"}) + "</w:tc>";
    const std::string table = "<w:tbl><w:tr>" + cell + cell + "</w:tr></w:tbl>";
    expectTexts(
        {{"table", paragraphs({"x"}) + table + paragraphs({"y"}), "x\na\nb\na\nb\ny\n"},
         {"nested", "<w:tbl><w:tr><w:tc>" + table + "<w:p/></w:tc></w:tr></w:tbl>", "a\nb\na\nb\n\n"}});
}

TEST(OfficeOpenXMLText, readsThroughContainers) {
    for (const char* element : {"w:ins", "w:moveTo", "w:smartTag", "w:hyperlink", "w:fldSimple",
                                "w:customXml", "w:dir", "w:bdo", "o:unknown"}) {
        std::string inner = std::string("<") + element + ">" + run("in") + "</" + element + ">";
        EXPECT_EQ(textOf(paragraph(run("a ") + inner)), "a in\n") << element;
    }
    EXPECT_EQ(
        textOf("<w:sdt><w:sdtPr><w:text/><w:rPr><w:vanish/></w:rPr><w:docPart><w:p><w:r><w:t>x</w:t></w:r>"
               "</w:p></w:docPart></w:sdtPr><w:sdtContent>" +
               paragraphs({"content"}) + "</w:sdtContent></w:sdt>"),
        "content\n");
}

TEST(OfficeOpenXMLText, leavesOutWhatWasDeleted) {
    const std::string mark = "<w:rPr><w:del w:id=\"1\"/></w:rPr>",
                      moved = "<w:rPr><w:moveFrom w:id=\"1\"/></w:rPr>";
    const std::string row =
        "<w:tr><w:trPr><w:del w:id=\"1\"/></w:trPr><w:tc>" + paragraphs({"gone"}) + "</w:tc></w:tr>";
    expectTexts({
        {"run", paragraph("<w:del><w:r><w:delText>x</w:delText><w:t>y</w:t></w:r></w:del>" + run("a")),
         "a\n"},
        {"moved run", paragraph("<w:moveFrom>" + run("x") + "</w:moveFrom>" + run("a")), "a\n"},
        {"paragraph end", paragraph(run("a"), mark) + paragraphs({"b"}), "ab\n"},
        {"moved paragraph end", paragraph(run("a"), moved) + paragraphs({"b"}), "ab\n"},
        {"last paragraph end", paragraph(run("a"), mark), "a\n"},
        {"paragraph end before a table",
         paragraph(run("a"), mark) + "<w:tbl><w:tr><w:tc>" + paragraphs({"b"}) + "</w:tc></w:tr></w:tbl>",
         "a\nb\n"},
        {"paragraph end in a cell",
         "<w:tbl><w:tr><w:tc>" + paragraph(run("a"), mark) + "</w:tc><w:tc>" + paragraphs({"b"}) +
             "</w:tc></w:tr></w:tbl>",
         "a\nb\n"},
        {"row", "<w:tbl>" + row + "<w:tr><w:tc>" + paragraphs({"a"}) + "</w:tc></w:tr>" + row + "</w:tbl>",
         "a\n"},
        {"cell",
         "<w:tbl><w:tr><w:tc><w:tcPr><w:cellDel w:id=\"1\"/></w:tcPr>" + paragraphs({"gone"}) +
             "</w:tc><w:tc><w:tcPr/>" + paragraphs({"a"}) + "</w:tc></w:tr></w:tbl>",
         "a\n"},
        {"former properties", paragraph(run("a", "<w:rPrChange><w:rPr><w:vanish/></w:rPr></w:rPrChange>")),
         "a\n"},
    });
}

TEST(OfficeOpenXMLText, givesTheResultsOfFields) {
    auto field = [](const char* type) {
        return "<w:r><w:fldChar w:fldCharType=\"" + std::string(type) + "\"/></w:r>";
    };
    const std::string begin = field("begin"), separate = field("separate"), end = field("end");
    const std::string code = "<w:r><w:instrText> PAGE </w:instrText></w:r>";
    expectTexts({
        {"simple", paragraph(begin + code + separate + run("7") + end + run("!")), "7!\n"},
        {"no result", paragraph(run("a") + begin + code + end + run("b")), "ab\n"},
        {"nested in the instruction",
         paragraph(begin + code + begin + code + separate + run("x") + end + separate + run("7") + end),
         "7\n"},
        {"nested in the result",
         paragraph(begin + code + separate + run("a") + begin + code + separate + run("b") + end + run("c") +
                   end),
         "abc\n"},
        {"over paragraphs",
         paragraph(begin + code + separate + run("a")) + paragraph(run("b") + end + run("c")), "a\nbc\n"},
        {"stray marks", paragraph(separate + end + run("a") + separate + end), "a\n"},
        {"an instruction without end hides its paragraph only",
         paragraph(begin + run("x")) + paragraphs({"a"}), "\na\n"},
    });
}

TEST(OfficeOpenXMLText, setsTextBoxesBehindTheirParagraph) {
    const std::string box = "<w:r><w:pict><o:shape><w:txbxContent>" + paragraphs({"box"}) +
                            "</w:txbxContent></o:shape></w:pict></w:r>";
    const std::string fieldInBox =
        "<w:r><w:txbxContent><w:p><w:r><w:fldChar w:fldCharType=\"begin\"/></w:r>" + run("x") +
        "</w:p></w:txbxContent></w:r>";
    expectTexts({
        {"box", paragraph(run("a") + box + run("b")) + paragraphs({"c"}), "ab\nbox\nc\n"},
        {"hidden box", paragraph(run("a") + "<w:r><w:rPr><w:vanish/></w:rPr>" + box.substr(5)), "a\n"},
        {"a field left open in a box ends with it", paragraph(fieldInBox + run("a")) + paragraphs({"b"}),
         "a\n\nb\n"},
        {"shape text",
         paragraph("<w:r><a:txBody><a:p><a:r><a:t>one</a:t></a:r><a:br/><a:r><a:t>two</a:t></a:r></a:p>"
                   "<a:p/></a:txBody></w:r>" +
                   run("a")),
         "a\none\u2028two\n"},
    });
}

TEST(OfficeOpenXMLText, takesOneOfSeveralFormsOfAContent) {
    auto alternatives = [](const std::string& first, const std::string& second, const std::string& fallback) {
        return paragraph("<w:r>x<mc:AlternateContent><mc:Choice Requires=\"a\">" + first +
                         "</mc:Choice><mc:Choice Requires=\"b\">" + second + "</mc:Choice><mc:Fallback>" +
                         fallback + "</mc:Fallback></mc:AlternateContent></w:r>");
    };
    const std::string a = "<w:t>a</w:t>", b = "<w:t>b</w:t>", c = "<w:t>c</w:t>", none = "<o:drawing/>";
    auto box = [](const std::string& text) {
        return "<w:txbxContent>" + paragraphs({text}) + "</w:txbxContent>";
    };
    expectTexts({{"first", alternatives(a, b, c), "a\n"},
                 {"second", alternatives(none, b, c), "b\n"},
                 {"fallback", alternatives(none, none, c), "c\n"},
                 {"none", alternatives(none, none, none), "\n"},
                 {"boxes", alternatives(box("a"), none, box("a")), "\na\n"},
                 {"boxes without text", alternatives("<w:txbxContent><w:p/></w:txbxContent>", none, box("c")),
                  "\n\nc\n"}});
}

TEST(OfficeOpenXMLText, readsEquationsAndTheBaseOfRuby) {
    expectTexts({
        {"equation",
         paragraph("<m:oMath><m:r><m:t>a+</m:t></m:r><m:sSup><m:e><m:r><m:t>b</m:t></m:r></m:e>"
                   "</m:sSup></m:oMath>"),
         "a+b\n"},
        {"ruby",
         paragraph("<w:r><w:ruby><w:rubyPr/><w:rt><w:r><w:t>かん</w:t></w:r></w:rt><w:rubyBase><w:r>"
                   "<w:t>漢</w:t></w:r></w:rubyBase></w:ruby></w:r>"),
         "漢\n"},
    });
}

TEST(OfficeOpenXMLText, leavesOutHiddenText) {
    auto vanish = [](const char* value) { return "<w:vanish w:val=\"" + std::string(value) + "\"/>"; };
    const std::string on = "<w:vanish/>", end = "<w:rPr><w:vanish/></w:rPr>";
    expectTexts({
        {"on", paragraph(run("a") + run("x", on) + run("b")), "ab\n"},
        {"values",
         paragraph(run("1", vanish("1")) + run("0", vanish("0")) + run("true", vanish("true")) +
                   run("false", vanish("false")) + run("off", vanish("off"))),
         "0falseoff\n"},
        {"hidden on the Web only", paragraph(run("a", "<w:webHidden/>")), "a\n"},
        {"hidden paragraph end", paragraph(run("a"), end) + paragraphs({"b"}), "ab\n"},
        {"hidden paragraph", paragraph(run("x", on), end) + paragraphs({"b"}), "b\n"},
        {"always hidden end", paragraph(run("a"), "<w:rPr><w:specVanish/></w:rPr>") + paragraphs({"b"}),
         "ab\n"},
        {"all kinds of content",
         paragraph("<w:r><w:rPr><w:vanish/></w:rPr><w:tab/><w:br/><w:sym w:char=\"41\"/>"
                   "<w:noBreakHyphen/></w:r>"),
         "\n"},
    });
}

TEST(OfficeOpenXMLText, leavesOutTextThatStylesHide) {
    DocxWriter docx;
    auto style = [](const char* type, const char* id, const char* basedOn, const char* properties) {
        return std::string("<w:style w:type=\"") + type + "\" w:styleId=\"" + id + "\"><w:basedOn w:val=\"" +
               basedOn + "\"/><w:rPr>" + properties + "</w:rPr></w:style>";
    };
    docx.styles = style("paragraph", "P", "", "<w:vanish/>") + style("paragraph", "P2", "P", "<w:b/>") +
                  style("paragraph", "P3", "P2", "<w:vanish w:val=\"0\"/>") +
                  style("character", "C", "", "<w:vanish/>") + style("character", "C2", "C", "") +
                  style("table", "T", "", "<w:vanish/>") + style("character", "Loop1", "Loop2", "") +
                  style("character", "Loop2", "Loop1", "");
    auto paragraphStyle = [](const char* id) { return std::string("<w:pStyle w:val=\"") + id + "\"/>"; };
    auto runStyle = [](const char* id) { return std::string("<w:rStyle w:val=\"") + id + "\"/>"; };
    const std::vector<Case> cases = {
        {"paragraph", paragraph(run("x"), paragraphStyle("P")) + paragraphs({"a"}), "a\n"},
        {"inherited", paragraph(run("x"), paragraphStyle("P2")) + paragraphs({"a"}), "a\n"},
        {"switched off", paragraph(run("a"), paragraphStyle("P3")), "a\n"},
        {"run switched off", paragraph(run("a", "<w:vanish w:val=\"0\"/>") + run("x"), paragraphStyle("P")),
         "a\n"},
        {"character", paragraph(run("a") + run("x", runStyle("C")) + run("x", runStyle("C2"))), "a\n"},
        {"twice is not at all", paragraph(run("a", runStyle("C")) + run("x"), paragraphStyle("P")), "a\n"},
        {"table",
         "<w:tbl><w:tblPr><w:tblStyle w:val=\"T\"/></w:tblPr><w:tr><w:tc>" + paragraphs({"x"}) +
             "</w:tc></w:tr></w:tbl>" + paragraphs({"a"}),
         "a\n"},
        {"unknown and cyclic", paragraph(run("a", runStyle("Loop1")), paragraphStyle("None")), "a\n"},
    };
    for (const Case& c : cases) {
        docx.body = c.body;
        EXPECT_EQ(textOf(docx), c.text) << c.name;
    }
    docx.styles = "<w:docDefaults><w:rPrDefault><w:rPr><w:vanish/></w:rPr></w:rPrDefault></w:docDefaults>";
    docx.body = paragraph(run("x") + run("a", "<w:vanish w:val=\"0\"/>"));
    EXPECT_EQ(textOf(docx), "a\n");
}

TEST(OfficeOpenXMLText, showsTheSignsOfSymbolFonts) {
    auto fonts = [](const std::string& name) {
        return "<w:rFonts w:ascii=\"" + name + "\" w:hAnsi=\"" + name + "\"/>";
    };
    expectTexts({
        {"Symbol", paragraph(run("a&#xF061;", fonts("Symbol"))), "aα\n"},
        {"Wingdings", paragraph(run("&#xF0FC;&#xF024;", fonts("Wingdings"))), "✓\uF024\n"},
        {"of one sort of script", paragraph(run("&#xF0FC;", "<w:rFonts w:cs=\"Wingdings\"/>")), "✓\n"},
        {"another font", paragraph(run("&#xF0FC;", fonts("Arial"))), "\uF0FC\n"},
        {"until the run ends", paragraph(run("&#xF061;", fonts("Symbol")) + run("&#xF061;")), "α\uF061\n"},
    });
}

} // namespace

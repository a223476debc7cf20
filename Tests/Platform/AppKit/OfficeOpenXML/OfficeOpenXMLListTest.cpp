// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/NumberFormatNames.h"
#include "Tests/Platform/AppKit/OfficeOpenXML/OfficeOpenXMLTesting.h"

namespace {

std::string level(int index, const std::string& format, const std::string& text,
                  const std::string& more = "") {
    return "<w:lvl w:ilvl=\"" + std::to_string(index) + "\"><w:start w:val=\"1\"/><w:numFmt w:val=\"" +
           format + "\"/>" + more + "<w:lvlText w:val=\"" + text + "\"/></w:lvl>";
}

std::string abstractList(int id, const std::string& levels) {
    return "<w:abstractNum w:abstractNumId=\"" + std::to_string(id) + "\">" + levels + "</w:abstractNum>";
}

std::string list(int id, int abstractID, const std::string& overrides = "") {
    return "<w:num w:numId=\"" + std::to_string(id) + "\"><w:abstractNumId w:val=\"" +
           std::to_string(abstractID) + "\"/>" + overrides + "</w:num>";
}

std::string item(int id, int itemLevel, const std::string& text = "x") {
    return paragraph(run(text), "<w:numPr><w:ilvl w:val=\"" + std::to_string(itemLevel) +
                                    "\"/><w:numId w:val=\"" + std::to_string(id) + "\"/></w:numPr>");
}

// The markers of the paragraphs of a document, each in brackets; "-" for one without.
std::string markers(const DocxWriter& docx) {
    std::string text = textOf(docx), all;
    for (size_t at = 0; at < text.size();) {
        size_t end = text.find('\n', at), tab = text.find('\t', at + 1);
        bool isItem = text[at] == '\t' && tab < end;
        all += isItem ? "[" + text.substr(at + 1, tab - at - 1) + "]" : "-";
        at = end + 1;
    }
    return all;
}

const std::string kOutline =
    level(0, "decimal", "%1.") + level(1, "lowerLetter", "%1.%2)") + level(2, "upperRoman", "%1-%2-%3");

TEST(OfficeOpenXMLList, setsTheMarkerBetweenTabs) {
    DocxWriter docx;
    docx.numbering = abstractList(0, kOutline) + list(1, 0);
    docx.body = item(1, 0, "first") + paragraphs({"between"}) + item(1, 1, "second") + item(0, 0, "none") +
                item(9, 0, "unknown") + item(1, 7, "no such level");
    EXPECT_EQ(textOf(docx), "\t1.\tfirst\nbetween\n\t1.a)\tsecond\nnone\nunknown\nno such level\n");
}

TEST(OfficeOpenXMLList, countsOnAndStartsAnewByLevel) {
    DocxWriter docx;
    docx.numbering =
        abstractList(0, kOutline) + list(1, 0) + list(2, 0) +
        list(3, 0, "<w:lvlOverride w:ilvl=\"0\"><w:startOverride w:val=\"5\"/></w:lvlOverride>") +
        list(4, 0, "<w:lvlOverride w:ilvl=\"0\">" + level(0, "upperLetter", "%1") + "</w:lvlOverride>");
    struct Case {
        std::string body, markers;
    };
    const Case cases[] = {
        {item(1, 0) + item(1, 0) + item(1, 1) + item(1, 1) + item(1, 0) + item(1, 1),
         "[1.][2.][2.a)][2.b)][3.][3.a)]"},
        {item(1, 2) + item(1, 2) + item(1, 1) + item(1, 0), "[1-a-I][1-a-II][1.b)][2.]"},
        {item(1, 0) + item(2, 0), "[1.][2.]"},
        {item(1, 0) + item(3, 0) + item(3, 0) + item(1, 0), "[1.][5.][6.][7.]"},
        {item(1, 0) + item(4, 0), "[1.][B]"},
    };
    for (const Case& c : cases) {
        docx.body = c.body;
        EXPECT_EQ(markers(docx), c.markers) << c.body;
    }
}

TEST(OfficeOpenXMLList, followsTheRestartRuleOfALevel) {
    DocxWriter docx;
    auto restart = [](int value) { return "<w:lvlRestart w:val=\"" + std::to_string(value) + "\"/>"; };
    docx.body = item(1, 0) + item(1, 1) + item(1, 2) + item(1, 1) + item(1, 2) + item(1, 0) + item(1, 2);
    struct Case {
        std::string rule, markers;
    };
    const Case cases[] = {{"", "[1][1][1][2][1][2][1]"},
                          {restart(0), "[1][1][1][2][2][2][3]"},
                          {restart(1), "[1][1][1][2][2][2][1]"},
                          {restart(2), "[1][1][1][2][1][2][1]"}};
    for (const Case& c : cases) {
        docx.numbering = abstractList(0, level(0, "decimal", "%1") + level(1, "decimal", "%2") +
                                             level(2, "decimal", "%3", c.rule)) +
                         list(1, 0);
        EXPECT_EQ(markers(docx), c.markers) << c.rule;
    }
}

TEST(OfficeOpenXMLList, writesBulletsAndLegalNumbers) {
    DocxWriter docx;
    const std::string symbol = "<w:rPr><w:rFonts w:ascii=\"Symbol\"/></w:rPr>";
    const std::string wingdings = "<w:rPr><w:rFonts w:ascii=\"Wingdings\"/></w:rPr>";
    docx.numbering =
        abstractList(0, level(0, "bullet", "&#xF0B7;", symbol) + level(1, "bullet", "o") +
                            level(2, "bullet", "&#xF0A7;", wingdings) + level(3, "none", "") +
                            level(4, "none", "Note")) +
        abstractList(1, level(0, "upperRoman", "%1") + level(1, "decimal", "%1.%2", "<w:isLgl/>")) +
        list(1, 0) + list(2, 1);
    docx.body = item(1, 0) + item(1, 1) + item(1, 2) + item(1, 3) + item(1, 4) + item(2, 0) + item(2, 1);
    EXPECT_EQ(markers(docx), "[•][o][▪]-[Note][I][1.1]");
}

TEST(OfficeOpenXMLList, takesListsFromStyles) {
    DocxWriter docx;
    docx.numbering = abstractList(0, level(0, "decimal", "%1", "<w:pStyle w:val=\"H1\"/>") +
                                         level(1, "decimal", "%1.%2", "<w:pStyle w:val=\"H2\"/>")) +
                     list(1, 0) + abstractList(7, "<w:numStyleLink w:val=\"Linked\"/>") + list(2, 7);
    auto style = [](const std::string& id, const std::string& content,
                    const std::string& type = "paragraph") {
        return "<w:style w:type=\"" + type + "\" w:styleId=\"" + id + "\">" + content + "</w:style>";
    };
    const std::string numbered = "<w:pPr><w:numPr><w:numId w:val=\"1\"/></w:numPr></w:pPr>";
    docx.styles =
        style("H1", numbered) + style("H2", numbered) + style("Derived", "<w:basedOn w:val=\"H2\"/>") +
        style("Level", "<w:pPr><w:numPr><w:ilvl w:val=\"1\"/><w:numId w:val=\"1\"/></w:numPr></w:pPr>") +
        style("Linked", numbered, "numbering");
    auto styled = [](const std::string& id, const std::string& more = "") {
        return paragraph(run("x"), "<w:pStyle w:val=\"" + id + "\"/>" + more);
    };
    docx.body = styled("H1") + styled("H2") + styled("Derived") + styled("Level") +
                styled("H1", "<w:numPr><w:numId w:val=\"0\"/></w:numPr>") +
                styled("H1", "<w:numPr><w:ilvl w:val=\"1\"/></w:numPr>") + item(2, 0);
    EXPECT_EQ(markers(docx), "[1][1.1][1.2][1.3]-[1.4][1]");
}

TEST(OfficeOpenXMLList, countsNoParagraphThatIsNotSeen) {
    DocxWriter docx;
    docx.numbering = abstractList(0, kOutline) + list(1, 0);
    const std::string inList = "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>";
    docx.body = item(1, 0) + paragraph("", inList + "<w:rPr><w:del/></w:rPr>") +
                paragraph(run("x", "<w:vanish/>"), inList + "<w:rPr><w:vanish/></w:rPr>") + item(1, 0) +
                paragraph("", inList);
    EXPECT_EQ(textOf(docx), "\t1.\tx\n\t2.\tx\n\t3.\t\n");
}

TEST(OfficeOpenXMLList, writesNumbersInManyWays) {
    struct Case {
        const char* format;
        int number;
        const char* text;
    };
    const Case cases[] = {
        {"decimal", 12, "12"},
        {"unknown", 12, "12"},
        {"upperRoman", 1994, "MCMXCIV"},
        {"lowerRoman", 4, "iv"},
        {"upperLetter", 27, "AA"},
        {"lowerLetter", 53, "aaa"},
        {"decimalZero", 7, "07"},
        {"decimalZero", 12, "12"},
        {"ordinal", 1, "1st"},
        {"ordinal", 12, "12th"},
        {"ordinal", 103, "103rd"},
        {"cardinalText", 21, "Twenty-one"},
        {"cardinalText", 100, "100"},
        {"ordinalText", 3, "Third"},
        {"ordinalText", 20, "Twentieth"},
        {"ordinalText", 42, "Forty-second"},
        {"none", 3, ""},
        {"bullet", 3, ""},
        {"chicago", 2, "†"},
        {"chicago", 6, "††"},
        {"decimalEnclosedCircle", 20, "⑳"},
        {"decimalEnclosedCircle", 21, "21"},
        {"decimalEnclosedParen", 1, "⑴"},
        {"decimalEnclosedFullstop", 3, "⒊"},
        {"decimalFullWidth", 10, "１０"},
        {"thaiNumbers", 25, "๒๕"},
        {"hindiNumbers", 9, "९"},
        {"ideographDigital", 10, "一〇"},
        {"japaneseCounting", 11, "十一"},
        {"chineseCounting", 20, "二十"},
        {"chineseCountingThousand", 105, "一百○五"},
        {"koreanCounting", 15, "십오"},
        {"koreanDigital", 12, "일이"},
        {"ideographTraditional", 3, "丙"},
        {"ideographZodiac", 12, "亥"},
        {"ideographZodiac", 13, "13"},
        {"aiueo", 2, "イ"},
        {"aiueoFullWidth", 3, "ウ"},
        {"iroha", 3, "ハ"},
        {"irohaFullWidth", 1, "イ"},
        {"ganada", 2, "나"},
        {"chosung", 14, "ㅎ"},
        {"russianLower", 2, "б"},
        {"russianUpper", 30, "АА"},
        {"hebrew2", 1, "א"},
        {"arabicAlpha", 2, "ب"},
        {"arabicAbjad", 3, "ج"},
        {"thaiLetters", 1, "ก"},
        {"taiwaneseCounting", 30, "三十"},
        {"taiwaneseCountingThousand", 1000, "一千"},
        {"taiwaneseDigital", 21, "二一"},
        {"japaneseDigitalTenThousand", 21, "二一"},
        {"koreanDigital2", 20, "二零"},
        {"decimalFullWidth2", 1, "１"},
        {"decimalEnclosedCircleChinese", 2, "②"},
        {"ideographEnclosedCircle", 10, "㊉"},
        {"upperRoman", 0, "0"},
        {"chicago", 0, "0"},
        {"upperRoman", 4000, "4000"},
        {"lowerLetter", 1000000000, "1000000000"},
        {"russianLower", 1000000, "1000000"},
        {"chineseCounting", 10000, "10000"},
    };
    for (const Case& c : cases) {
        std::u16string text;
        appendNumber(text, c.number, OfficeOpenXML::numberFormatNamed(c.format));
        EXPECT_EQ(toUTF8(text), c.text) << c.format << " " << c.number;
    }
}

} // namespace

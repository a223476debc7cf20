// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OpenDocument/OpenDocumentTesting.h"

namespace {

using namespace OpenDocumentTesting;

constexpr std::string_view kStyles =
    "<office:styles>"
    "<text:outline-style style:name='Outline'>"
    "<text:outline-level-style text:level='1' style:num-format='I' style:num-suffix='.'/>"
    "<text:outline-level-style text:level='2' style:num-format='1' text:display-levels='2'/>"
    "<text:outline-level-style text:level='3' style:num-format=''/>"
    "</text:outline-style>"
    "<style:style style:name='Unnumbered' style:family='paragraph' style:list-style-name=''/>"
    "<style:style style:name='Listed' style:family='paragraph' style:list-style-name='N'/>"
    "<text:list-style style:name='N'>"
    "<text:list-level-style-number text:level='1' style:num-prefix='(' style:num-format='1' "
    "style:num-suffix=')'/>"
    "<text:list-level-style-number text:level='2' style:num-format='a' style:num-suffix='.' "
    "text:display-levels='2'/>"
    "<text:list-level-style-number text:level='3' style:num-format='1' text:display-levels='3'/>"
    "</text:list-style>"
    "<text:list-style style:name='S'><text:list-level-style-number text:level='1' style:num-format='1' "
    "text:start-value='5'/></text:list-style>"
    "<text:list-style style:name='B'><text:list-level-style-bullet text:level='1' "
    "text:bullet-char='\xE2\x96\xAA'/>"
    "<text:list-level-style-image text:level='2'/></text:list-style>"
    "</office:styles>";

// A list of the style that holds these items.
std::string list(std::string_view style, std::string_view items, std::string_view attributes = {}) {
    std::string xml = "<text:list ";
    if (!style.empty()) xml.append("text:style-name='").append(style).append("' ");
    return xml.append(attributes).append(">").append(items).append("</text:list>");
}

std::string item(std::string_view text, std::string_view more = {}) {
    return "<text:list-item><text:p>" + std::string(text) + "</text:p>" + std::string(more) +
           "</text:list-item>";
}

std::u16string listText(const std::string& body) { return textOf(body, kStyles); }

TEST(OpenDocumentLists, markTheFirstParagraphOfEachItem) {
    EXPECT_EQ(listText(list("N", item("a", "<text:p>b</text:p>") + item("c"))), u"\t(1)\ta\nb\n\t(2)\tc\n");
    EXPECT_EQ(listText(list("B", item("a") + item("b"))), u"\t\u25AA\ta\n\t\u25AA\tb\n");
    EXPECT_EQ(listText(list("N", "<text:list-header><text:p>h</text:p></text:list-header>" + item("a"))),
              u"h\n\t(1)\ta\n");
    EXPECT_EQ(listText(list("N", "<text:list-item><text:h>a</text:h></text:list-item>")), u"\t(1)\ta\n");
}

TEST(OpenDocumentLists, showUpperLevelsInTheirOwnFormats) {
    std::string deep = list("", item("c") + item("d"));
    std::string middle = list("", item("b", deep));
    EXPECT_EQ(listText(list("N", item("a", middle) + item("e", list("", item("f"))))),
              u"\t(1)\ta\n\t1.a.\tb\n\t1.a.1\tc\n\t1.a.2\td\n\t(2)\te\n\t2.a.\tf\n");
    // An upper level without an item counts as its first.
    EXPECT_EQ(listText(list("N", "<text:list-item>" + list("", item("a") + item("b")) + "</text:list-item>" +
                                     item("c"))),
              u"\t1.a.\ta\n\t1.b.\tb\n\t(2)\tc\n");
}

TEST(OpenDocumentLists, haveNoMarkerWhereTheLevelShowsNone) {
    EXPECT_EQ(listText(list("B", item("a", list("", item("b"))))), u"\t\u25AA\ta\nb\n");
    EXPECT_EQ(listText(list("S", item("a", list("", item("b"))))), u"\t5\ta\nb\n");
}

TEST(OpenDocumentLists, takeABulletWhenTheirStyleIsMissing) {
    EXPECT_EQ(listText(list("Nowhere", item("a"))), u"\t\u2022\ta\n");
    EXPECT_EQ(listText(list("", item("a"))), u"\t\u2022\ta\n");
}

TEST(OpenDocumentLists, takeTheStyleOfTheParagraphWhenTheyHaveNone) {
    EXPECT_EQ(
        listText(list("", "<text:list-item><text:p text:style-name='Listed'>a</text:p></text:list-item>")),
        u"\t(1)\ta\n");
    EXPECT_EQ(listText("<text:p text:style-name='Listed'>a</text:p>"), u"a\n");
}

TEST(OpenDocumentLists, startWhereTheyAreTold) {
    EXPECT_EQ(listText(list("S", item("a") + item("b"))), u"\t5\ta\n\t6\tb\n");
    EXPECT_EQ(
        listText(list("N", item("a") +
                               "<text:list-item text:start-value='7'><text:p>b</text:p></text:list-item>" +
                               item("c"))),
        u"\t(1)\ta\n\t(7)\tb\n\t(8)\tc\n");
    EXPECT_EQ(
        listText(list("N", "<text:list-item text:style-override='S'><text:p>a</text:p></text:list-item>" +
                               item("b"))),
        u"\t5\ta\n\t(6)\tb\n");
}

TEST(OpenDocumentLists, startAnewUnlessTheyContinue) {
    constexpr std::string_view kContinue = "text:continue-numbering='true'";
    EXPECT_EQ(listText(list("N", item("a")) + list("N", item("b"))), u"\t(1)\ta\n\t(1)\tb\n");
    EXPECT_EQ(listText(list("N", item("a")) + "<text:p>p</text:p>" + list("N", item("b"), kContinue)),
              u"\t(1)\ta\np\n\t(2)\tb\n");
    EXPECT_EQ(listText(list("N", item("a")) + list("S", item("b"), kContinue)), u"\t(1)\ta\n\t5\tb\n");
    EXPECT_EQ(listText(list("N", item("a"), "xml:id='one'") + list("N", item("b")) +
                       list("", item("c"), "text:continue-list='one' xml:id='two'") +
                       list("", item("d"), "text:continue-list='two'")),
              u"\t(1)\ta\n\t(1)\tb\n\t(2)\tc\n\t(3)\td\n");
    EXPECT_EQ(listText(list("N", item("a"), "text:continue-list='nowhere'")), u"\t(1)\ta\n");
}

TEST(OpenDocumentLists, continueSublistsUnderAContinuedList) {
    constexpr std::string_view kContinue = "text:continue-numbering='true'";
    std::string wrapped = "<text:list-item>" + list("", item("b")) + "</text:list-item>";
    EXPECT_EQ(listText(list("N", item("a")) + list("N", wrapped, kContinue) + list("N", wrapped, kContinue)),
              u"\t(1)\ta\n\t1.a.\tb\n\t1.b.\tb\n");
    // Below the next item a sublist starts anew, unless it says otherwise.
    EXPECT_EQ(listText(list("N", item("a", list("", item("b"))) + item("c", list("", item("d"))))),
              u"\t(1)\ta\n\t1.a.\tb\n\t(2)\tc\n\t2.a.\td\n");
    EXPECT_EQ(listText(list("N", item("a", list("", item("b"))) + item("c", list("", item("d"), kContinue)))),
              u"\t(1)\ta\n\t1.a.\tb\n\t(2)\tc\n\t2.b.\td\n");
    EXPECT_EQ(listText(list("N", item("a", list("", item("b")) +
                                               list("", item("c"), "text:continue-numbering='false'")))),
              u"\t(1)\ta\n\t1.a.\tb\n\t1.a.\tc\n");
}

TEST(OpenDocumentLists, ofBoxesAndNotesAreTheirOwn) {
    std::string box = "<draw:text-box>" + list("N", item("b")) + "<text:p>c</text:p></draw:text-box>";
    EXPECT_EQ(
        listText(list("N", "<text:list-item><text:p>a" + box + "</text:p></text:list-item>" + item("d"))),
        u"\t(1)\ta\n\t(1)\tb\nc\n\t(2)\td\n");
}

TEST(OpenDocumentLists, holdNumberedParagraphs) {
    auto numbered = [](std::string_view level, std::string_view text) {
        return "<text:numbered-paragraph text:list-id='l' text:style-name='N' text:level='" +
               std::string(level) + "'><text:p>" + std::string(text) + "</text:p></text:numbered-paragraph>";
    };
    EXPECT_EQ(listText(numbered("1", "a") + numbered("2", "b") + numbered("2", "c") + numbered("1", "d") +
                       numbered("2", "e")),
              u"\t(1)\ta\n\t1.a.\tb\n\t1.b.\tc\n\t(2)\td\n\t2.a.\te\n");
    EXPECT_EQ(listText(numbered("99", "a") + numbered("-1", "b")), u"a\n\t(2)\tb\n");
}

TEST(OpenDocumentLists, numberHeadingsByTheOutline) {
    auto heading = [](std::string_view level, std::string_view text, std::string_view attributes = {}) {
        return "<text:h text:outline-level='" + std::string(level) + "' " + std::string(attributes) + ">" +
               std::string(text) + "</text:h>";
    };
    EXPECT_EQ(listText(heading("1", "a") + heading("2", "b") + heading("2", "c") + heading("3", "d") +
                       heading("1", "e") + heading("2", "f")),
              u"\tI.\ta\n\tI.1\tb\n\tI.2\tc\nd\n\tII.\te\n\tII.1\tf\n");
    EXPECT_EQ(
        listText(heading("1", "a") + heading("1", "b", "text:is-list-header='true'") + heading("1", "c")),
        u"\tI.\ta\nb\n\tII.\tc\n");
    EXPECT_EQ(listText(heading("1", "a", "text:style-name='Unnumbered'")), u"a\n");
    EXPECT_EQ(listText(heading("1", "a") +
                       heading("1", "b", "text:restart-numbering='true' text:start-value='9'") +
                       heading("1", "c", "text:restart-numbering='true' text:start-value='-1'")),
              u"\tI.\ta\n\tIX.\tb\n\tI.\tc\n");
}

TEST(OpenDocumentLists, doNotMarkHiddenParagraphs) {
    std::string styles =
        std::string(kStyles) +
        "<office:automatic-styles><style:style style:name='H' style:family='paragraph'>"
        "<style:text-properties text:display='none'/></style:style></office:automatic-styles>";
    std::string hidden = "<text:list-item><text:p text:style-name='H'>x</text:p></text:list-item>";
    EXPECT_EQ(textOf(list("N", item("a") + hidden + item("b")), styles), u"\t(1)\ta\n\t(2)\tb\n");
}

TEST(OpenDocumentLists, showTheSignsOfSymbolFontsForBullets) {
    struct {
        const char* bullet;
        const char* font;
        std::u16string_view shown;
    } const cases[] = {
        {"&#xF0A7;", "style:font-name='Wingdings'", u"\u25AA"},
        {"\xC2\xA7", "fo:font-family='Wingdings'", u"\u25AA"},
        {"&#xF0B7;", "fo:font-family=\"'Symbol'\"", u"\u2022"},
        {"&#xF0FC;", "style:font-name='Signs'", u"\u2713"},
        {"&#xF0FC;", "style:font-name='Letters'", u"\uF0FC"},
        {"&#x25AA;", "style:font-name='Wingdings'", u"\u25AA"},
    };
    for (const auto& c : cases) {
        const std::string styles =
            "<office:font-face-decls><style:font-face style:name='Signs' svg:font-family='Wingdings, x'/>"
            "<style:font-face style:name='Letters' svg:font-family='Arial'/></office:font-face-decls>"
            "<office:styles><text:list-style style:name='B'><text:list-level-style-bullet text:level='1' "
            "text:bullet-char='" +
            std::string(c.bullet) + "'><style:list-level-properties/><style:text-properties " + c.font +
            "/></text:list-level-style-bullet><text:list-level-style-number text:level='2' "
            "style:num-format='1'/></text:list-style></office:styles>";
        EXPECT_EQ(textOf(list("B", item("a", list("", item("b")))), styles),
                  u"\t" + std::u16string(c.shown) + u"\ta\n\t1\tb\n")
            << c.bullet << ' ' << c.font;
    }
}

TEST(OpenDocumentLists, showTheSignsOfSymbolFontsThatTheirTextStylesHave) {
    auto style = [](const char* name, const char* parent, const char* properties) {
        return std::string("<style:style style:family='text' style:name='") + name +
               "' style:parent-style-name='" + parent + "'><style:text-properties " + properties +
               "/></style:style>";
    };
    auto shown = [&](const char* textStyle) {
        return textOf(list("B", item("a")),
                      "<office:styles><text:list-style style:name='B'><text:list-level-style-bullet "
                      "text:level='1' text:bullet-char='&#xF0B7;' text:style-name='" +
                          std::string(textStyle) + "'/></text:list-style>" +
                          style("Sign", "", "style:font-name='Symbol'") + style("Child", "Sign", "") +
                          style("Letter", "Sign", "fo:font-family='Arial'") + "</office:styles>");
    };
    EXPECT_EQ(shown("Sign"), u"\t\u2022\ta\n");
    EXPECT_EQ(shown("Child"), u"\t\u2022\ta\n");
    EXPECT_EQ(shown("Letter"), u"\t\uF0B7\ta\n");
    EXPECT_EQ(shown("None"), u"\t\uF0B7\ta\n");
}

} // namespace

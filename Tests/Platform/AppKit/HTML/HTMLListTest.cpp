// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLListMarker.h"
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

namespace {

using namespace HTMLTesting;

TEST(HTMLList, setsMarkers) {
    expectTexts({
        {"bullets", "<ul><li>a</li><li>b</li></ul>", u"\t•\ta\n\t•\tb\n"},
        {"numbers", "<ol><li>a<li>b</ol>", u"\t1\ta\n\t2\tb\n"},
        {"text around", "x<ul><li>a</ul>y", u"x\n\t•\ta\ny"},
        {"bullets change with the depth", "<ul><li>a<ul><li>b<ul><li>c<ul><li>d</ul></ul></ul></ul>",
         u"\t•\ta\n\t◦\tb\n\t▪\tc\n\t▪\td\n"},
        {"a numbered list counts as depth", "<ol><li>a<ul><li>b</ul></ol>", u"\t1\ta\n\t◦\tb\n"},
        {"the outer list goes on", "<ol><li>a<ol><li>b<li>c</ol><li>d</ol>",
         u"\t1\ta\n\t1\tb\n\t2\tc\n\t2\td\n"},
        {"text behind an inner list is a paragraph of the outer", "<ol><li>a<ol><li>b</ol>c<li>d</ol>",
         u"\t1\ta\n\t1\tb\n\t2\tc\n\t3\td\n"},
        {"text without an item", "<ul>a<li>b</ul>", u"\t•\ta\n\t•\tb\n"},
        {"an empty item", "<ol><li><li>a</ol>", u"\t1\t\n\t2\ta\n"},
        {"an item without a list", "<li>a</li>", u"a\n"},
        {"lists one after the other", "<ol><li>a</ol><ol><li>b</ol>", u"\t1\ta\n\t1\tb\n"},
        {"hidden items", "<ol><li hidden>a<li>b</ol>", u"\t1\tb\n"},
        {"menus are no lists", "<menu><li>a</menu>", u"a\n"},
    });
}

TEST(HTMLList, takesTheStyleOfMarkers) {
    expectTexts({
        {"first number", "<ol start=7><li>a<li>b</ol>", u"\t7\ta\n\t8\tb\n"},
        {"negative and with a sign", "<ol start=-1><li>a</ol><ol start=+4><li>b</ol>", u"\t-1\ta\n\t4\tb\n"},
        {"no number", "<ol start=x><li>a</ol>", u"\t1\ta\n"},
        {"too large a number", "<ol start=99999999999><li>a</ol>", u"\t1\ta\n"},
        {"an item's own number is not asked for", "<ol><li value=5>a</ol>", u"\t1\ta\n"},
        {"a bullet list does not count", "<ul start=5 type=1><li>a</ul>", u"\t1\ta\n"},
        {"types",
         "<ol type=a><li>a</ol><ol type=A><li>b</ol><ol type=i><li>c</ol><ol type=I start=4><li>d</ol>",
         u"\ta\ta\n\tA\tb\n\ti\tc\n\tIV\td\n"},
        {"types of bullets", "<ul type=SQUARE><li>a</ul><ol type=circle><li>b</ol>", u"\t▪\ta\n\t◦\tb\n"},
        {"by a style attribute", "<ul style='list-style-type:upper-roman'><li>a</ul>", u"\tI\ta\n"},
        {"by the shorthand", "<ul style='list-style: square outside none'><li>a</ul>", u"\t▪\ta\n"},
        {"without markers", "<ul style='list-style:none'><li>a</ul>", u"\t\ta\n"},
        {"by a style sheet", "<style>ul.x{list-style:decimal inside}</style><ul class=x><li>a</ul>",
         u"\t1\ta\n"},
    });
}

TEST(HTMLList, makesLinesOfBlocksInItems) {
    expectTexts({
        {"blocks end with a line break", "<ul><li><p>a</p><p>b</p></ul>", u"\t•\ta\u2028b\n"},
        {"and begin with nothing", "<ul><li>a <div>b</div>c</ul>", u"\t•\ta b\u2028c\n"},
        {"tables break as ever", "<ul><li><table><td>a<td>b</table></ul>", u"\t•\ta\n\t•\tb\n"},
        {"lines of preformatted text are paragraphs", "<ul><li><pre>a\nb</pre></ul>", u"\t•\ta\n\t•\tb\n"},
    });
}

TEST(HTMLList, writesNumbers) {
    struct Case {
        HTMLListStyle style;
        int64_t number;
        std::u16string_view marker;
    };
    for (const Case& c : {Case{HTMLListStyle::decimal, 1234, u"1234"},
                          {HTMLListStyle::decimal, -5, u"-5"},
                          {HTMLListStyle::lowerAlpha, 26, u"z"},
                          {HTMLListStyle::lowerAlpha, 27, u"aa"},
                          {HTMLListStyle::upperAlpha, 703, u"AAA"},
                          {HTMLListStyle::lowerAlpha, 0, u"0"},
                          {HTMLListStyle::lowerRoman, 1994, u"mcmxciv"},
                          {HTMLListStyle::upperRoman, 3999, u"MMMCMXCIX"},
                          {HTMLListStyle::upperRoman, 4000, u"4000"},
                          {HTMLListStyle::lowerRoman, -1, u"-1"},
                          {HTMLListStyle::none, 3, u""}}) {
        EXPECT_EQ(toUTF8(listMarker(c.style, c.number)), toUTF8(c.marker)) << c.number;
    }
}

} // namespace

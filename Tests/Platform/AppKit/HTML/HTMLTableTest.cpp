// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

namespace {

using namespace HTMLTesting;

TEST(HTMLTable, makesAParagraphOfEachCell) {
    expectTexts({
        {"cells and rows", "<table><tr><td>a</td><td>b</td></tr><tr><th>c</th></tr></table>", u"a\nb\nc\n"},
        {"blank between the parts", "<table> <tr> <td> a </td> <td> b </td> </tr> </table>", u"a\nb\n"},
        {"an empty cell", "<table><tr><td></td><td>a</td></tr></table>", u"\na\n"},
        {"rows without cells", "<table><tr></tr><tr><td>a</td></tr></table>", u"a\n"},
        {"columns", "<table><colgroup><col><col></colgroup><tr><td>a</td></tr></table>", u"a\n"},
        {"text around", "x<table><td>a</table>y", u"x\na\ny"},
        {"paragraphs in a cell", "<table><td><p>a</p><p>b</p><td>c</table>", u"a\nb\nc\n"},
        {"tables in tables", "<table><td>a<table><td>b<td>c</table>d<td>e</table>", u"a\nb\nc\nd\ne\n"},
        {"an empty table", "a<table></table>b", u"a\n\nb"},
        {"text that strayed into a table", "<table>a<tr><td>b</table>", u"a\nb\n"},
    });
}

TEST(HTMLTable, putsItsPartsInOrder) {
    expectTexts({
        {"footer before the body", "<table><tfoot><tr><td>f</tfoot><tbody><tr><td>b</table>", u"b\nf\n"},
        {"header behind the body", "<table><tbody><tr><td>b</tbody><thead><tr><td>h</thead></table>",
         u"h\nb\n"},
        {"of several the first",
         "<table><tbody><tr><td>b<thead><tr><td>h<thead><tr><td>i<tfoot><tr><td>f<tfoot><tr><td>g"
         "<tbody><tr><td>c</table>",
         u"h\nb\ni\ng\nc\nf\n"},
        {"caption", "<table><caption>c</caption><tr><td>a</table>", u"c\na\n"},
        {"caption behind the rows", "<table><tr><td>a</tr><caption>c</caption></table>", u"c\na\n"},
        {"tables in tables",
         "<table><tfoot><tr><td>f<table><tfoot><tr><td>g<tbody><tr><td>d</table><tbody><tr><td>b</table>",
         u"b\nf\nd\ng\n"},
    });
}

TEST(HTMLTable, isMadeByStylesToo) {
    expectTexts({
        {"cells of a table",
         "<div style='display:table'><div style='display:table-cell'>a</div><div "
         "style='display:table-cell'>b</div></div>",
         u"a\nb\n"},
        {"cells without a table",
         "<div style='display:table-cell'>a</div><div style='display:table-cell'>b</div>c", u"a\tb\tc"},
        {"tables that are blocks",
         "<table style='display:block'><td style='display:inline'>a<td "
         "style='display:inline'>b</table>c",
         u"ab\nc"},
    });
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLMediaQuery.h"
#include "Platform/AppKit/HTML/HTMLTextTransform.h"
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

namespace {

using namespace HTMLTesting;

TEST(HTMLStyle, leavesOutWhatIsNeverShown) {
    expectTexts({
        {"head", "<head><title>t</title><style>s</style><script>x</script></head>a", u"a"},
        {"in the body", "a<script>x</script><style>s</style><template><p>y</template><title>t</title>b",
         u"ab"},
        {"whatever a style says", "<style>script,style,template{display:block}</style><script>x</script>a",
         u"a"},
        {"comments and the like", "a<!-- x --><!DOCTYPE y><?z?>b", u"ab"},
        {"the hidden attribute", "a<p hidden>x</p><b hidden=until-found>y</b>b", u"ab"},
        {"until a style shows it", "<style>p{display:block}</style><p hidden>a", u"a\n"},
        {"closed details", "<details>x<summary>a</summary><p>y</p></details>", u"a\n"},
        {"open details", "<details open><summary>a</summary>b</details>", u"a\nb\n"},
        {"dialogs", "<dialog>x</dialog><DIALOG open>a</DIALOG></><dialog>x</dialog>", u"a\n"},
        {"lists of suggestions", "a<datalist><option>x</datalist>", u"a"},
        {"parentheses of ruby", "<ruby>a<rp>(</rp><rt>b</rt><rp>)</rp></ruby>", u"ab"},
        {"text for when there are no scripts is shown", "<noscript><p>a</p></noscript>", u"a\n"},
        {"parts of pictures",
         "<svg><title>x</title><desc>x</desc><defs><text>x</text></defs><metadata>x</metadata>"
         "<style>x</style><text>a</text></svg>",
         u"a\n"},
        {"notes of formulas",
         "<math><mi>a</mi><annotation>x</annotation><annotation-xml>x</annotation-xml></math>", u"a"},
        {"text without frames", "<noframes>x</noframes><noembed>x</noembed>a", u"a"},
    });
}

TEST(HTMLStyle, hidesByAttribute) {
    expectTexts({
        {"display", "a<p style='display:none'>x<b>y</b></p>b", u"ab"},
        {"with blanks, case and other properties",
         "<b style=\"color : red ;DISPLAY : None ; margin:0\">x</b>a", u"a"},
        {"important", "<b style='display: none ! important; display:inline'>x</b>a", u"a"},
        {"the last one counts", "<b style='display:none;display:inline'>a</b>", u"a"},
        {"what is not understood does not", "<b style='display:none;display:sideways'>x</b>a", u"a"},
        {"not of another property", "<b style='x-display:none; content:\";display:none\"'>a</b>", u"a"},
        {"nor in a comment or parentheses", "<b style='/*display:none*/ background:url(;display:none)'>a</b>",
         u"a"},
        {"a page does not hide itself", "<body style='display:none'><p>a", u"a\n"},
    });
}

TEST(HTMLStyle, makesBlocksByStyle) {
    expectTexts({
        {"block", "a<span style='display:block'>b</span>c", u"a\nb\nc"},
        {"inline", "<p style='display:inline'>a</p><p style='display:inline'>b</p>", u"ab"},
        {"inline blocks", "<p style='display:inline-block'>a</p>b", u"ab"},
        {"list items", "a<span style='display:list-item'>b</span>", u"a\nb\n"},
        {"floats", "a<span style='float:left'>b</span>c", u"a\nb\nc"},
        {"positioned", "a<span style='position:absolute'>b</span><i style='position:relative'>c</i>",
         u"a\nb\nc"},
        {"children of a flex box", "<div style='display:flex'><span>a</span><span>b <i>c</i></span></div>",
         u"a\nb c\n"},
        {"through contents",
         "<div style='display:grid'><p style='display:contents'><b>a</b><b>b</b></p></div>", u"a\nb\n"},
        {"inline flex boxes", "x<span style='display:inline-flex'><b>a</b></span>", u"x\na\n"},
    });
}

TEST(HTMLStyle, transformsCase) {
    expectTexts({
        {"upper", "<p style='text-transform:uppercase'>straße éœ ж", u"STRASSE ÉŒ Ж\n"},
        {"lower", "<p style='text-transform:lowercase'>ÀB Ÿ ΑΣ", u"àb ÿ ασ\n"},
        {"capitals", "<p style='text-transform:capitalize'>it's a b-c (d) éa 1st",
         u"It's A B-C (D) Éa 1st\n"},
        {"across elements", "<p style='text-transform:capitalize'>a<b>b</b> <b>c</b>", u"Ab C\n"},
        {"inherited, and taken back",
         "<p style='text-transform:uppercase'>a<b>b<i style='text-transform:none'>c", u"ABc\n"},
        {"not into form controls", "<div style='text-transform:uppercase'>a<button>b</button></div>",
         u"Ab\n"},
    });
}

TEST(HTMLStyle, matchesSelectors) {
    struct Case {
        const char* selector;
        const char* html;
        bool matches;
    };
    for (const Case& c : {
             Case{"b", "<b>x</b>", true},
             {"B", "<b>x</b>", true},
             {"*", "<b>x</b>", true},
             {"x-y", "<X-y>x</X-y>", true},
             {"i", "<b>x</b>", false},
             {".a", "<b class='c a'>x</b>", true},
             {".a", "<b class=A>x</b>", false},
             {".a", "<b class=ab>x</b>", false},
             {"#a", "<b id=a>x</b>", true},
             {"#a", "<b class=a>x</b>", false},
             {"b.a.c", "<b class='c a'>x</b>", true},
             {"b.a.c", "<b class=a>x</b>", false},
             {"b#i.a", "<b class=a id=i>x</b>", true},
             {"i , .a,b", "<b>x</b>", true},
             {"p b", "<p><i><b>x</b></i></p>", true},
             {"p > b", "<p><b>x</b></p>", true},
             {"p>b", "<p><i><b>x</b></i></p>", false},
             {"p > i b", "<p><u><i><i><b>x</b></i></i></u></p>", false},
             {"p > i b", "<p><i><u><i><b>x</b></i></u></i></p>", true},
             {".a .b", "<p class=b><b class=a>x</b></p>", false},
             {"html body .a", "<b class=a>x</b>", true},
             {"i i b", "<i><b>x</b></i>", false},
             {"b:hover", "<b>x</b>", false},
             {"b + b", "<b>x</b>", false},
             {"b[class]", "<b class=a>x</b>", false},
             {"> b", "<b>x</b>", false},
             {"p >", "<p>x</p>", false},
             {"..a", "<b class=a>x</b>", false},
             {"", "<b>x</b>", false},
         }) {
        const std::string page = "<style>" + std::string(c.selector) + "{display:none}</style>" + c.html;
        EXPECT_EQ(textOf(page).find(u'x') == std::u16string::npos, c.matches) << page;
    }
}

TEST(HTMLStyle, ordersRules) {
    expectTexts({
        {"the later of equals", "<style>.a{display:none}.b{display:inline}</style><b class='b a'>a</b>",
         u"a"},
        {"the more special", "<style>.a{display:inline}b{display:none}</style><b class=a>a</b>", u"a"},
        {"an id beats classes",
         "<style>#i{display:inline}.a.a.a.a{display:none}</style><b class=a id=i>a</b>", u"a"},
        {"two parts beat one", "<style>body b{display:none}b{display:inline}</style><b>x</b>a", u"a"},
        {"importance beats all",
         "<style>b{display:none!important}#i{display:inline}</style><b id=i "
         "style='display:inline'>x</b>a",
         u"a"},
        {"the attribute beats selectors",
         "<style>#i{display:none}</style><b id=i style='display:inline'>a</b>", u"a"},
        {"sheets in order", "<style>b{display:none}</style><style>b{display:inline}</style><b>a</b>", u"a"},
        {"a sheet behind the text", "<b>x</b>a<style>b{display:none}</style>", u"a"},
    });
}

TEST(HTMLStyle, readsDamagedAndDecoratedSheets) {
    expectTexts({
        {"comments", "<style>/* b{} */ b/**/ {} b{/*}*/display:/**/inline;display:none}</style><b>x</b>a",
         u"a"},
        {"in an old comment", "<style><!-- b{display:none} --></style><b>x</b>a", u"a"},
        {"strings", "<style>i{content:'}b{'} b{content:\"\\\"}\";display:none}</style><b>x</b>a", u"a"},
        {"a string left open", "<style>i{content:'x\n} b{display:none}</style><b>x</b>a", u"a"},
        {"a block left open", "<style>b{display:none", u""},
        {"closed too often", "<style>}} b{display:none}</style><b>x</b>a", u"a"},
        {"rules within rules",
         "<style>i{ u:hover{display:none} color:red } b{ i{display:inline} display:none}</style>"
         "<b>x</b><i>a</i>",
         u"a"},
        {"other at-rules",
         "<style>@import 'x';@charset \"y\";@font-face{display:none}@keyframes k{from{display:none}}"
         "@page{b{}}b{display:none}</style><b>x</b>a",
         u"a"},
        {"sheets of another language", "<style type=text/less>b{display:none}</style><b>a</b>", u"a"},
        {"sheets for print", "<style media=print>b{display:none}</style><b>a</b>", u"a"},
        {"rules for print", "<style>@media print{b{display:none}} i{display:none}</style><b>a</b><i>x</i>",
         u"a"},
        {"rules for the screen",
         "<style>@media screen{b{display:none}} i{display:none}</style><b>x</b><i>x</i>a", u"a"},
        {"blocks in blocks",
         "<style>@media all{@supports (display:grid){@layer x{b{display:none}}}"
         "@supports not (x:y){i{display:none}}}</style><b>x</b><i>a</i>",
         u"a"},
    });
}

TEST(HTMLStyle, evaluatesMediaQueries) {
    struct Case {
        const char* queries;
        bool holds;
    };
    for (const Case& c : {Case{"", true},
                          {"all", true},
                          {"SCREEN", true},
                          {"only screen", true},
                          {"print", false},
                          {"not print", true},
                          {"not all", false},
                          {"print, screen", true},
                          {"speech, print", false},
                          {"screen and (min-width: 600px)", true},
                          {"(min-width:40em)", true},
                          {"(min-width: 1200px)", false},
                          {"(max-width: 600px)", false},
                          {"(max-width: 100rem) and (min-width: 0)", true},
                          {"print and (min-width: 1px)", false},
                          {"(orientation: landscape)", false},
                          {"(color)", false},
                          {"screen and (", false},
                          {"{", false}}) {
        EXPECT_EQ(mediaQueriesHold(c.queries), c.holds) << c.queries;
    }
}

TEST(HTMLStyle, knowsTheCaseOfEuropeanLetters) {
    struct Case {
        std::u16string_view lower, upper;
    };
    for (const Case& c : {Case{u"azàþäāłžßµ", u"AZÀÞÄĀŁŽSSµ"},
                          {u"άέήίόύώαωςϋ", u"ΆΈΉΊΌΎΏΑΩΣΫ"},
                          {u"аяѐџҋӂӑ", u"АЯЀЏҊӁӐ"},
                          {u"աֆẁạỹ", u"ԱՖẀẠỸ"},
                          {u"ⓐａ÷中", u"ⒶＡ÷中"}}) {
        std::u16string text(c.lower);
        transformText(text, 0, HTMLTextTransform::uppercase);
        EXPECT_EQ(toUTF8(text), toUTF8(c.upper));
    }
    std::u16string text = u"ABCÀÝŸĀŁΆΩЖЏԱ";
    transformText(text, 1, HTMLTextTransform::lowercase);
    EXPECT_EQ(toUTF8(text), toUTF8(u"Abcàýÿāłάωжџա"));
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLSourceGuard.h"
#include "Platform/AppKit/HTML/HTMLOpenElements.h"
#include "Platform/AppKit/HTML/HTMLTree.h"
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

namespace {

using namespace HTMLTesting;

std::string guarded(std::string_view source) {
    std::string rewritten;
    return std::string(guardedSource(source, rewritten));
}

struct Shape {
    size_t depth = 0, nodes = 0;
};

Shape shapeOf(std::string_view source) {
    Deadline deadline;
    const HTMLTree tree(source, deadline);
    std::vector<std::pair<const GumboVector*, unsigned>> places = {{childrenOf(tree.document()), 0}};
    Shape shape;
    while (!places.empty()) {
        auto& [children, next] = places.back();
        if (next == children->length) {
            places.pop_back();
            continue;
        }
        ++shape.nodes;
        if (const GumboVector* inner = childrenOf(static_cast<const GumboNode*>(children->data[next++]))) {
            places.push_back({inner, 0});
            shape.depth = std::max(shape.depth, places.size());
        }
    }
    return shape;
}

// "<b id=0><b id=1>..."
std::string numbered(std::string_view before, size_t count, std::string_view after) {
    std::string text;
    for (size_t i = 0; i < count; ++i) text.append(before).append(std::to_string(i)).append(after);
    return text;
}

TEST(HTMLSourceGuard, leavesPagesAsTheyAre) {
    for (const std::string& page : {
             std::string("<!DOCTYPE html><html><head><title>t</title></head><body class=a><p "
                         "id=b>c<br/>d</body></html>"),
             std::string("plain < text & </ more <3 <!-- <a href=x> --> <![CDATA[<p title=x>]]>"),
             repeated("<p>a<b>b</b>", 2000),
             repeated("<li>a", 2000),
             repeated("<dl><dt>a<dd>b</dl>", 2000),
             "<table>" + repeated("<tr><td>a<td>b", 2000),
             repeated("<table><tbody><tr><th>a</table>", 1000),
             "<select>" + repeated("<option>a", 1000) + "</select>",
             repeated("<h1>a</h2>", 1000),
             repeated("<form>a", 1000),
             repeated("<button>a", 1000),
             repeated("<ruby>a<rt>b<rt>c</ruby>", 1000),
             repeated("<p><font color=red>a", 500),
             numbered("<p><font color=", 40, ">a"),
             repeated("<div>", 390) + "a",
             repeated("<svg><g/><path/></svg>", 1000),
             "<title>" + repeated("<div>", 1000) + "</title><textarea>" + repeated("<b>", 1000) +
                 "</textarea>",
             "<plaintext>" + repeated("<div>", 1000),
             "<!-- " + repeated("<div>", 1000) + "-->",
             repeated("<img src=x>", 1000) + repeated("<input name=a value=b>", 1000),
             repeated("</div>", 1000),
         }) {
        EXPECT_TRUE(guarded(page) == page) << page.substr(0, 60);
    }
}

TEST(HTMLSourceGuard, leavesOutWhatNobodyReads) {
    struct Case {
        const char* source;
        const char* guarded;
    };
    for (const Case& c : {
             Case{"<script src=a>b<p>c</script>d", "<script src=a></script>d"},
             {"<script>a</scripts><b></SCRIPT >", "<script></SCRIPT >"},
             {"<script>a", "<script>a"},
             {"<script><!--<script></script>--></script>", "<script><!--<script></script>--></script>"},
             {"<style>a</style>", "<style>a</style>"},
             {"<svg><script>a</script></svg>", "<svg><script>a</script></svg>"},
             {"<a href='x' class=y title=\"z>\">t</a >", "<a  class=y >t</a >"},
             {"<p lang=en/data-x hidden>", "<p  hidden>"},
             {"<p/lang/>", "<p//>"},
             {"<p class=a lang=b class=c>", "<p class=a  class=c>"},
             {"<p hidden lang =x =y>", "<p hidden  >"},
             {"</p class=a>", "</p >"},
             {"<img src='data:image/png;base64,AAAAAAAAAAAAAAAA'>",
              "<img src='data:image/png;base64,AAAAAAAAAA'>"},
             {"<p lang=x", "<p lang=x"},
         }) {
        EXPECT_EQ(guarded(c.source), c.guarded);
    }
}

TEST(HTMLSourceGuard, boundsTheDepth) {
    struct Case {
        const char* part;
        bool showsText;
    };
    for (const Case& c : {
             Case{"<div>", true},
             {"<span>", true},
             {"<b>", true},
             {"<x-y>", true},
             {"<ul><li>", true},
             {"<dl><dd>", true},
             {"<table><td>", true},
             {"<table><tr><td><div>", true},
             {"<applet>", true},
             {"<object>", true},
             {"<template>", false},
             {"<template><tr><td>", false},
             {"<li><template><form>x", false},
             {"<rt>", true},
             {"<svg></></svg>", true},
             {"<math><![CDATA[]]></math>", true},
             {"<applet>x<math><html></math>", true},
             {"<math><desc><td>", false},
             {"<svg><font><title>", false},
             {"<table><div><table><font>", true},
             {"<g><p>x<isindex>", true},
             {"<svg>", true},
             {"<svg><g>", true},
             {"<math><mtext>", true},
             {"<svg><foreignObject><div>", true},
             {"<ruby><rt><span>", true},
             {"<nobr><div>", true},
             {"<a><div>", true},
             {"<a><table><td>", true},
             {"<b><table><td><i>", true},
             {"<noscript>", true},
             {"<dialog>", false},
             {"<details>", false},
             {"<form><div>", true},
             {"<form><div></form>", true},
             {"<li><span><div>", true},
             {"<button><table><td>", true},
             {"<h1><span><div>", true},
             {"<p><b><p><i><div>", true},
             {"<frameset>", false},
         }) {
        const std::string source = repeated(c.part, 20000) + "text";
        EXPECT_LT(shapeOf(guarded(source)).depth, 3 * HTMLOpenElements::kDepthLimit) << c.part;
        EXPECT_EQ(textOf(source).find(u"text") != std::u16string::npos, c.showsText) << c.part;
    }
}

TEST(HTMLSourceGuard, refusesTagsTogetherWithTheirEndTags) {
    const std::string deep = repeated("<div>", HTMLOpenElements::kDepthLimit);
    EXPECT_EQ(guarded(deep + "<p>a</p><div>b</div><i>c</i></div>"), deep + " a  b <!---->c<!----></div>");
    // What is closed makes room again.
    EXPECT_EQ(guarded(deep + "<p>a</p></div><p>b</p>"), deep + " a </div><p>b</p>");
}

TEST(HTMLSourceGuard, letsNoTagsComeTogetherFromParts) {
    const std::string parts = repeated("<</x-y>div>", 2000);
    EXPECT_LT(shapeOf(guarded(repeated("<span>", 200) + parts)).depth, HTMLOpenElements::kDepthLimit);
    EXPECT_LT(shapeOf(guarded(repeated("<span>", 500) + repeated("<<b>p>", 2000))).depth,
              HTMLOpenElements::kDepthLimit + 10);
}

TEST(HTMLSourceGuard, boundsElementsThatAreOpenedAnew) {
    const std::string open = "<p>" + numbered("<b id=", 45, ">") + "</p>";
    const std::string source = open + repeated("<p>x", 20000) + "<p>end";
    EXPECT_LT(shapeOf(guarded(source)).nodes, 100000u);
    EXPECT_NE(textOf(source).find(u"x\nend\n"), std::u16string::npos);

    const std::string cells =
        "<table>" + repeated("<td><p>" + numbered("<b id=", 45, ">") + "</p>x<p>y<p>z</td>", 500);
    EXPECT_LT(shapeOf(guarded(cells)).nodes, 100000u);
}

TEST(HTMLSourceGuard, boundsAttributes) {
    const std::string source =
        "<p " + numbered("a", 20000, " ") + ">" + numbered("<html b", 5000, ">") + "text";
    EXPECT_LT(guarded(source).size(), source.size() / 2);
    EXPECT_EQ(textOf(source), u"text\n");
}

TEST(HTMLSourceGuard, readsOnWhereScannerAndParserCouldDiffer) {
    expectTexts({
        {"raw text that a menu ignores", "<select><style></select><p>a</p></style>", u"a\n"},
        {"a title in a picture", "<svg><title></svg><p>a</p></title>", u"a\n"},
        {"raw text in a picture", "<svg><style><p>a</style></svg>b", u"ab\n"},
        {"a script that hides its end", "<script><!--<script></script>x--></script>a", u"a"},
        {"a section in a picture", "<svg><text><![CDATA[<p>]]></text></svg>a", u"<p>\na"},
        {"a section elsewhere", "<![CDATA[<p>]]>a", u"]]>a"},
        {"an end tag inside of an attribute", "<p title='</p><div>'>a</p>", u"a\n"},
    });
}

} // namespace

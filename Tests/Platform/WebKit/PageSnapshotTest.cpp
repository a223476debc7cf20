// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/PageSnapshot.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace {

std::string fields(std::initializer_list<std::string> texts) {
    std::string all;
    for (const std::string& text : texts) all += std::to_string(text.size()) + ":" + text;
    return all;
}

std::string frame(const std::string& path, const std::string& children, const std::string& text) {
    return fields({path, children, "http://a/", "title", "t" + text, "."});
}

TEST(PageSnapshot, OfAFrameHasItsTextTitleAndNodes) {
    const PageSnapshot page =
        PageSnapshot::withFields(fields({"", "0", "http://a/", "title", "ttext", "o", "h", "ta", "I", "none",
                                         "alternative", "", ")", ")", "e", ")", "."}));
    EXPECT_TRUE(page.main.isKnown && page.main.hasDocument);
    EXPECT_EQ(page.main.url, NSString(u"http://a/"));
    EXPECT_EQ(page.main.title, NSString(u"title"));
    EXPECT_EQ(page.main.text, NSString(u"text"));
    const DOMNode document = page.main.document;
    ASSERT_EQ(document.childNodesLength(), 3u);
    EXPECT_EQ(document.childNode(1).textContent(), NSString(u"a"));
    EXPECT_EQ(document.childNode(1).childNode(1).alt(), NSString(u"alternative"));
    EXPECT_FALSE(document.childNode(2).isDOMHTMLElement());
}

TEST(PageSnapshot, CountsInUTF16Units) {
    const PageSnapshot page = PageSnapshot::withFields("0:1:09:http://a/0:3:t😀1:.");
    EXPECT_EQ(page.main.text, NSString(u"😀"));
    EXPECT_FALSE(page.main.title);
}

TEST(PageSnapshot, PutsFramesInTheirPlacesInWhateverOrderTheyCome) {
    const PageSnapshot page = PageSnapshot::withFields(frame("1/0/", "0", "inner") +
                                                       frame("1/", "1", "second") + frame("", "3", "main"));
    ASSERT_EQ(page.main.children.size(), 3u);
    EXPECT_FALSE(page.main.children[0].isKnown);
    EXPECT_EQ(page.main.children[1].text, NSString(u"second"));
    EXPECT_EQ(page.main.children[1].children.at(0).text, NSString(u"inner"));
    EXPECT_FALSE(page.main.children[2].isKnown);
}

TEST(PageSnapshot, KnowsFramesThatCannotBeRead) {
    const PageSnapshot page = PageSnapshot::withFields(fields({"", "0", "", "", "n", "."}));
    EXPECT_TRUE(page.main.isKnown);
    EXPECT_FALSE(page.main.hasDocument);
    EXPECT_FALSE(page.main.document);
}

TEST(PageSnapshot, LeavesOutAFrameThatHasGone) {
    const PageSnapshot page = PageSnapshot::withFields(frame("gone", "0", "x") + frame("", "0", "main"));
    EXPECT_EQ(page.main.text, NSString(u"main"));
}

TEST(PageSnapshot, KeepsWhatWasReadBeforeTheDamage) {
    const std::string whole = frame("", "1", "main") + frame("0/", "0", "child");
    for (size_t length = 0; length <= whole.size(); ++length) {
        const PageSnapshot page = PageSnapshot::withFields(whole.substr(0, length));
        EXPECT_LE(page.main.children.size(), 1u);
    }
    for (const char* damage : {"x", "5:", "-1:", "99999999999:a", "3:0/a", "1:/", "6:99999/1:01:a1:a1:t1:.",
                               "2:0/9:9999999991:a1:a1:t1:.", "2:0/1:00:0:0:1:.", "2:0/1:00:0:1:t1:?"}) {
        EXPECT_EQ(PageSnapshot::withFields(frame("", "0", "main") + damage).main.text, NSString(u"main"))
            << damage;
    }
}

TEST(PageSnapshot, HasNoMoreFramesThanAPageCanHave) {
    std::string paths;
    for (int i = 0; i < 100; ++i) paths += "0/";
    PageSnapshot::withFields(frame(paths, "0", "deep"));
    EXPECT_TRUE(PageSnapshot::withFields(frame("", "999999", "many")).main.children.empty());
    std::string wide = frame("", "4000", "main");
    for (int i = 0; i < 4000; ++i) wide += frame(std::to_string(i) + "/", "4000", "");
    EXPECT_EQ(PageSnapshot::withFields(wide).main.children.size(), 4000u);
}

} // namespace

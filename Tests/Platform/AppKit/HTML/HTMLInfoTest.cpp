// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

namespace {

using namespace HTMLTesting;

DocumentInfo infoOf(std::string_view html) { return read("<meta charset=utf-8>" + std::string(html)).info; }

TEST(HTMLInfo, takesTheTitle) {
    struct Case {
        const char* html;
        std::u16string_view title;
    };
    for (const Case& c : {Case{"<title>a</title>", u"a"},
                          {"<title> a\n\tb  c </title>", u"a b c"},
                          {"<title>&amp;<b>é</b></title>", u"&<b>é</b>"},
                          {"<title>a</title><title>b</title>", u"a"},
                          {"<title></title><title>b</title>", u""},
                          {"<p>x</p><title>a</title>", u"a"},
                          {"<svg><title>x</title></svg><title>a</title>", u"a"},
                          {"<title>a", u"a"},
                          {"<p>a", u""}}) {
        EXPECT_EQ(toUTF8(infoOf(c.html).title), toUTF8(c.title)) << c.html;
    }
}

TEST(HTMLInfo, takesMetaElementsByName) {
    const DocumentInfo info =
        infoOf("<meta name=AUTHOR content='a é'><meta name=LastAuthor content=b><meta name=company content=c>"
               "<meta name=Copyright content=d><meta name=subject content=e><META NAME=' Description ' "
               "CONTENT=f><meta name=generator content=g><meta property=author content=h>");
    EXPECT_EQ(info.author, u"a é");
    EXPECT_EQ(info.editor, u"b");
    EXPECT_EQ(info.company, u"c");
    EXPECT_EQ(info.copyright, u"d");
    EXPECT_EQ(info.subject, u"e");
    EXPECT_EQ(info.comment, u"f");
    EXPECT_TRUE(info.title.empty() && info.manager.empty() && info.category.empty() && info.keywords.empty());
    EXPECT_FALSE(info.creationTime || info.modificationTime || info.cocoaVersion || info.characterEncoding);
}

TEST(HTMLInfo, letsALaterMetaReplace) {
    const DocumentInfo info = infoOf(
        "<meta name=author content=a><meta name=comment content=b><meta name=keywords content=c><p>x</p>"
        "<meta name=Author content=d><meta name=description content=e><meta name=keywords content=f>");
    EXPECT_EQ(info.author, u"d");
    EXPECT_EQ(info.comment, u"e");
    EXPECT_EQ(info.keywords, std::vector<std::u16string>{u"f"});
}

TEST(HTMLInfo, splitsKeywords) {
    struct Case {
        const char* content;
        std::vector<std::u16string> keywords;
    };
    for (const Case& c : {Case{"a, b c, d", {u"a", u"b c", u"d"}},
                          {"a,b c,d", {u"a", u"b c", u"d"}},
                          {"a,b, c", {u"a,b", u"c"}},
                          {"a b c", {u"a", u"b", u"c"}},
                          {"a", {u"a"}},
                          {"a,,b", {u"a", u"", u"b"}},
                          {"", {}}}) {
        EXPECT_EQ(infoOf("<meta name=keywords content='" + std::string(c.content) + "'>").keywords,
                  c.keywords)
            << c.content;
    }
}

TEST(HTMLInfo, readsTimes) {
    struct Case {
        const char* text;
        std::optional<DocumentTime> time;
    };
    for (const Case& c : {Case{"2001-01-01T00:00:00Z", 0.0},
                          {"2000-02-29T12:34:56Z", -26479504.0},
                          {"2024-12-31T23:59:59Z", 757382399.0},
                          {"2023-02-29T00:00:00Z", std::nullopt},
                          {"2023-01-01T24:00:00Z", std::nullopt},
                          {"2023-01-01 00:00:00Z", std::nullopt},
                          {"2023-01-01T00:00:00", std::nullopt},
                          {"2023-1-1T0:0:0Z", std::nullopt},
                          {"", std::nullopt}}) {
        const std::string content = "content='" + std::string(c.text) + "'>";
        EXPECT_EQ(infoOf("<meta name=CreationTime " + content).creationTime, c.time) << c.text;
        EXPECT_EQ(infoOf("<meta name=ModificationTime " + content).modificationTime, c.time) << c.text;
    }
}

TEST(HTMLInfo, tellsConvertedTextFromThePlatformsOwn) {
    EXPECT_EQ(infoOf("<p>a").converted, -1);
    const DocumentInfo own = infoOf("<meta name=CocoaVersion content=2022.5>");
    EXPECT_EQ(own.cocoaVersion, 2022.5);
    EXPECT_EQ(own.converted, std::nullopt);
    EXPECT_EQ(infoOf("<meta name=cocoaversion content=x>").cocoaVersion, 0);
}

TEST(HTMLInfo, hasAPageOfUSLetter) {
    const DocumentInfo info = infoOf("");
    ASSERT_TRUE(info.paperSize);
    EXPECT_EQ(info.paperSize->width, 612);
    EXPECT_EQ(info.paperSize->height, 792);
    EXPECT_EQ(info.leftMargin, 90);
    EXPECT_EQ(info.rightMargin, 90);
    EXPECT_EQ(info.topMargin, 72);
    EXPECT_EQ(info.bottomMargin, 72);
}

} // namespace

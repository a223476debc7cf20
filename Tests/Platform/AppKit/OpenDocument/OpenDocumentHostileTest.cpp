// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/OpenDocument/OpenDocumentTesting.h"

#include <chrono>
#include <random>

namespace {

using namespace OpenDocumentTesting;

std::string repeated(std::string_view text, size_t count) {
    std::string all;
    for (size_t i = 0; i < count; ++i) all += text;
    return all;
}

bool isPrefix(std::u16string_view text, std::u16string_view whole) {
    while (!text.empty() && text.back() == u'\n') text.remove_suffix(1);
    return whole.starts_with(text);
}

std::string manyParagraphs() {
    std::string text;
    for (int i = 0; i < 500; ++i) text += "<text:p>paragraph " + std::to_string(i * 7919) + "</text:p>";
    return text;
}

TEST(OpenDocumentHostile, truncatedFlatFilesGiveTheirBeginning) {
    std::string whole = flat(manyParagraphs());
    std::u16string text = contentsOf(whole).text;
    size_t begin = whole.find("<text:p>");
    for (int percent = 1; percent < 100; ++percent) {
        size_t length = begin + (whole.size() - begin) * size_t(percent) / 100;
        DocumentContents contents = contentsOf(whole.substr(0, length));
        EXPECT_TRUE(isPrefix(contents.text, text)) << percent;
        EXPECT_GE(contents.text.size() * 105, text.size() * size_t(percent - 1)) << percent;
    }
}

TEST(OpenDocumentHostile, truncatedPackagesGiveTheirBeginning) {
    std::string content = rooted("document-content", body(manyParagraphs()));
    std::string whole = package(content);
    std::u16string text = contentsOf(whole).text;
    size_t longest = 0;
    for (int percent = 1; percent < 100; ++percent) {
        DocumentContents contents;
        ReadStatus status =
            read(std::string_view(whole).substr(0, whole.size() * size_t(percent) / 100), contents);
        EXPECT_NE(status, ReadStatus::locked) << percent;
        EXPECT_TRUE(isPrefix(contents.text, text)) << percent;
        EXPECT_GE(contents.text.size() + 1, longest) << percent;
        longest = std::max(longest, contents.text.size());
    }
    EXPECT_EQ(longest, text.size());
}

TEST(OpenDocumentHostile, damagedPackagesDoNoHarm) {
    std::string whole = package(rooted("document-content", body(manyParagraphs())));
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        std::string damaged = whole;
        for (int k = 0; k < 5; ++k) damaged[random() % damaged.size()] = char(random());
        DocumentContents contents;
        read(damaged, contents);
    }
}

TEST(OpenDocumentHostile, entitiesAreRefused) {
    std::string bomb = "<!DOCTYPE d [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;'>]>";
    std::string document = flat("<text:p>&b;</text:p>");
    document.insert(document.find("<office:"), bomb);
    DocumentContents contents;
    EXPECT_EQ(read(document, contents), ReadStatus::wrongKind);

    std::string content = rooted("document-content", body("<text:p>&b;</text:p>"));
    content.insert(content.find("<office:"), bomb);
    EXPECT_EQ(contentsOf(package(content)).text, u"");
}

TEST(OpenDocumentHostile, deepNestingHidesWhatLiesTooDeepAndNothingElse) {
    for (const char* name : {"text:span", "text:section", "text:list", "text:list-item", "table:table",
                             "draw:text-box", "text:note", "text:p", "text:novelty", "office:annotation"}) {
        std::string open = "<" + std::string(name) + ">", close = "</" + std::string(name) + ">";
        std::string text = "<text:p>before</text:p><text:p>" + repeated(open, 100'000) + "x" +
                           repeated(close, 100'000) + "</text:p><text:p>behind</text:p>";
        const std::u16string read = contentsOf(flat(text)).text;
        EXPECT_TRUE(read.starts_with(u"before\n")) << name;
        EXPECT_NE(read.find(u"\nbehind\n"), std::u16string::npos) << name;
    }
}

TEST(OpenDocumentHostile, unbalancedNestingOfBoxesAndListsKeepsTheOrder) {
    std::string box = "<draw:text-box><text:list><text:list-item><text:p>";
    std::string end = "</text:p></text:list-item></text:list></draw:text-box>";
    std::string text =
        "<text:p>a" + repeated(box, 200) + "b" + repeated(end, 200) + "c</text:p><text:p>d</text:p>";
    std::u16string read = textOf(text);
    EXPECT_TRUE(read.starts_with(u"ac\n"));
    EXPECT_TRUE(read.ends_with(u"d\n"));
}

TEST(OpenDocumentHostile, manyStylesAndListsStayCheap) {
    std::string styles = "<office:styles>", text;
    for (int i = 0; i < 100'000; ++i) {
        std::string name = std::to_string(i);
        styles += "<text:list-style style:name='" + name +
                  "'/><style:style style:family='text' style:name='" + name + "' style:parent-style-name='" +
                  std::to_string(i + 1) + "'/>";
        text += "<text:list text:style-name='" + name + "' xml:id='" + name +
                "'/><text:p><text:span text:style-name='0'>a</text:span></text:p>";
    }
    auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(textOf(text, styles + "</office:styles>").size(), 200'000u);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST(OpenDocumentHostile, readingStopsAtTheDeadline) {
    std::string document = flat(repeated("<text:p>text</text:p>", 2'000'000));
    Deadline deadline(std::chrono::duration<double>(0));
    while (!deadline.passed()) {
    }
    DocumentContents contents;
    EXPECT_EQ(readOpenDocument(document, deadline, contents), ReadStatus::wrongKind);
    EXPECT_EQ(contents.text, u"");
}

} // namespace

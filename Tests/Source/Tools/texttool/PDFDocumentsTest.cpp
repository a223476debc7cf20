// SPDX-License-Identifier: Apache-2.0
//
// The steps of the extractor on documents that fail where real ones seldom do.
#include "Source/Tools/texttool/PDFDocuments.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/PDFKit/PDFEngine.h"

#include <gtest/gtest.h>

namespace {

// A document of given texts and annotations. An empty optional is what cannot be read.
class Given : public PDFEngine {
public:
    struct Page {
        std::optional<std::u16string> text;
        std::vector<std::optional<PDFAnnotationContents>> annotations;
        bool isThere = true;
    };
    std::vector<Page> pages;

    bool isLocked() override { return false; }
    size_t pageCount() override { return pages.size(); }
    NSDictionary documentAttributes() override { return nullptr; }
    bool hasPage(size_t page) override { return page < pages.size() && pages[page].isThere; }
    bool appendPageText(size_t page, std::u16string& text) override {
        if (!pages[page].text) return false;
        text += *pages[page].text;
        return true;
    }
    size_t annotationCount(size_t page) override { return pages[page].annotations.size(); }
    bool isLink(size_t page, size_t index) override {
        const auto& annotation = pages[page].annotations[index];
        return annotation && annotation->url.has_value();
    }
    bool readAnnotation(size_t page, size_t index, PDFAnnotationContents& contents) override {
        const auto& annotation = pages[page].annotations[index];
        if (annotation) contents = *annotation;
        return annotation.has_value();
    }
};

struct Texts {
    std::u16string body, comments;
};

Texts read(std::vector<Given::Page> pages) {
    auto engine = std::make_shared<Given>();
    engine->pages = std::move(pages);
    Texts texts;
    appendPages(PDFDocument(engine), texts.body, texts.comments);
    return texts;
}

PDFAnnotationContents note(std::optional<std::u16string> author, std::optional<std::u16string> contents) {
    return {true, std::move(author), std::move(contents), {}};
}

std::u16string textOf(const PDFAnnotationContents& annotation) {
    return read({{u"", {annotation}}}).comments;
}

TEST(PDFPages, AreJoinedWithNothingBetween) { EXPECT_EQ(read({{u"A", {}}, {u"B", {}}}).body, u"AB"); }

TEST(PDFPages, OfADocumentWithoutPagesAreNothing) {
    EXPECT_EQ(read({}).body, u"");
    EXPECT_EQ(read({}).comments, u"");
}

TEST(PDFPages, ThatCannotBeReadCostOnlyTheirOwnText) {
    Texts texts = read({{u"A", {}}, {{}, {note({}, u"kept")}}, {u"C", {}}});
    EXPECT_EQ(texts.body, u"AC");
    EXPECT_EQ(texts.comments, u"kept\n");
}

TEST(PDFPages, ThatAreNotThereCostNothing) {
    EXPECT_EQ(read({{u"A", {}}, {u"not there", {note(u"nobody", {})}, false}, {u"C", {}}}).body, u"AC");
}

TEST(PDFAnnotationText, OfOneThatCannotBeReadIsMissingAlone) {
    EXPECT_EQ(read({{u"", {note({}, u"1"), std::nullopt, note({}, u"3")}}}).comments, u"1\n3\n");
}

TEST(PDFAnnotationText, IsTheAuthorAndTheContents) {
    EXPECT_EQ(textOf(note(u"Ann", u"Note")), u"Ann\nNote\n");
    EXPECT_EQ(textOf(note(u"Ann", {})), u"Ann\n");
    EXPECT_EQ(textOf(note({}, {})), u"");
}

TEST(PDFAnnotationText, LacksTheAuthorWhereThereIsNone) {
    EXPECT_EQ(textOf({false, u"Ann", u"Note", {}}), u"Note\n");
}

TEST(PDFAnnotationText, OfEmptyContentsIsABareLineFeed) {
    EXPECT_EQ(textOf(note({}, u"")), u"\n");
    EXPECT_EQ(textOf(note(u"", u"")), u"\n\n");
}

TEST(PDFAnnotationText, EndsWithTheTargetOfALink) {
    EXPECT_EQ(textOf({false, {}, u"", u"http://example.org/"}), u"\nhttp://example.org/\n");
    EXPECT_EQ(textOf({false, {}, {}, u"http://example.org/"}), u"http://example.org/\n");
}

// An annotation whose link cannot be asked for.
class FailingLink : public PDFAnnotationLink {
public:
    bool respondsToUserName() const override { return true; }
    NSString userName() const override { return u"Ann"; }
    NSString contents() const override { return u"Note"; }
    NSURL URL() const override { NSException(NSGenericException, u"no").raise(); }
};

TEST(PDFAnnotationText, KeepsWhatStoodBeforeAFailure) {
    std::u16string text;
    EXPECT_THROW(appendAnnotationText(FailingLink(), text), NSException);
    EXPECT_EQ(text, u"Ann\nNote\n");
}

} // namespace

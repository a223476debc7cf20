// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/Word/WordTesting.h"

#include "Platform/AppKit/CompoundFile/PropertySet.h"
#include "Tests/Support/PropertySetWriter.h"

namespace {

std::string twips(unsigned code, int value) {
    return modifier(code, {unsigned(value) & 0xFF, unsigned(value) >> 8 & 0xFF});
}

DocumentInfo infoOf(WordDocumentWriter& document) {
    std::string bytes = document.paragraph(u"text").endSection().finish();
    return contentsOf(bytes).info;
}

TEST(WordInfo, ReadsBothPropertySets) {
    constexpr uint64_t kStartOf2001 = 126'227'808'000'000'000, kDay = 864'000'000'000;
    WordDocumentWriter document;
    document.stream("\5SummaryInformation", PropertySetWriter(1251)
                                                .byteString(SummaryProperty::title, "\xD2\xE5\xEC\xE0")
                                                .byteString(SummaryProperty::subject, "subject")
                                                .byteString(SummaryProperty::author, "author")
                                                .byteString(SummaryProperty::keywords, "one, two;three ,, ")
                                                .byteString(SummaryProperty::comments, "comment")
                                                .byteString(SummaryProperty::lastAuthor, "editor")
                                                .time(SummaryProperty::creationTime, kStartOf2001 + kDay)
                                                .time(SummaryProperty::lastSavedTime, kStartOf2001 + 2 * kDay)
                                                .finish());
    document.stream("\5DocumentSummaryInformation",
                    PropertySetWriter()
                        .byteString(DocumentSummaryProperty::category, "category")
                        .byteString(DocumentSummaryProperty::manager, "manager")
                        .byteString(DocumentSummaryProperty::company, "company")
                        .finish());
    DocumentInfo info = infoOf(document);
    EXPECT_EQ(info.title, u"Тема");
    EXPECT_EQ(info.subject, u"subject");
    EXPECT_EQ(info.author, u"author");
    EXPECT_EQ(info.keywords, (std::vector<std::u16string>{u"one", u"two", u"three"}));
    EXPECT_EQ(info.comment, u"comment");
    EXPECT_EQ(info.editor, u"editor");
    EXPECT_EQ(info.category, u"category");
    EXPECT_EQ(info.manager, u"manager");
    EXPECT_EQ(info.company, u"company");
    EXPECT_EQ(info.creationTime, 86400.0);
    EXPECT_EQ(info.modificationTime, 172800.0);
    EXPECT_EQ(info.converted, -1);
}

TEST(WordInfo, SaysNothingWithoutPropertySets) {
    WordDocumentWriter document;
    DocumentInfo info = infoOf(document);
    EXPECT_EQ(info.title, u"");
    EXPECT_TRUE(info.keywords.empty());
    EXPECT_EQ(info.creationTime, std::nullopt);
}

TEST(WordInfo, TheFirstSectionTellsThePage) {
    WordDocumentWriter document;
    document.text(u"one").mark(u'\f').endSection(twips(0xB01F, 11906) + twips(0xB020, 16838) +
                                                 twips(0xB021, 1000) + twips(0xB022, 1100) +
                                                 twips(0x9023, 1200) + twips(0x9024, -1300));
    DocumentInfo info = infoOf(document);
    ASSERT_TRUE(info.paperSize);
    EXPECT_EQ(info.paperSize->width, 595.3);
    EXPECT_EQ(info.paperSize->height, 841.9);
    EXPECT_EQ(info.leftMargin, 50);
    EXPECT_EQ(info.rightMargin, 55);
    EXPECT_EQ(info.topMargin, 60);
    EXPECT_EQ(info.bottomMargin, 65);
}

TEST(WordInfo, ASectionThatSaysNothingHasTheUsualPage) {
    for (WordLayout layout : {WordLayout::word6, WordLayout::word97}) {
        WordDocumentWriter document(layout);
        DocumentInfo info = infoOf(document);
        ASSERT_TRUE(info.paperSize);
        EXPECT_EQ(info.paperSize->width, 612);
        EXPECT_EQ(info.paperSize->height, 792);
        EXPECT_EQ(info.leftMargin, 90);
        EXPECT_EQ(info.topMargin, 72);
    }
}

TEST(WordInfo, OldSectionsTellThePage) {
    WordDocumentWriter document(WordLayout::word6);
    document.text(u"one").mark(u'\f').endSection(oldModifier(142, {1}) + oldModifier(164, {0x40, 0x1F}) +
                                                 oldModifier(166, {0x14, 0}));
    DocumentInfo info = infoOf(document);
    ASSERT_TRUE(info.paperSize);
    EXPECT_EQ(info.paperSize->width, 400);
    EXPECT_EQ(info.leftMargin, 1);
}

} // namespace

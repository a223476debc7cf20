// SPDX-License-Identifier: Apache-2.0
//
// Documents that are not what they seem: of another kind, encrypted, cut off or lying.
#include "Tests/Platform/AppKit/Word/WordTesting.h"

#include "Platform/AppKit/CompoundFile/PropertySet.h"
#include "Tests/Support/LittleEndianWriter.h"
#include "Tests/Support/PropertySetWriter.h"

namespace {

// A document with everything in it.
std::string richDocument(WordLayout layout) {
    bool isOld = layout == WordLayout::word6;
    WordDocumentWriter document(layout);
    document.font(u"Times New Roman").font(u"Symbol", 2).style({}).style({false, 0, {}, {}});
    document.list({1, {{1, 0, std::u16string(u"\0.", 2), 0, 0, {}}}}).listOverride({1, {{0, 3, {}}}});
    for (int i = 0; i < 30; ++i) {
        document.text(u"Paragraph with ").text(u"hidden", isOld ? oldModifier(92, {1}) : hidden());
        document.field(u"PAGE", u"result")
            .note(WordDocumentWriter::footnotes, u" note\r")
            .anchor(uint32_t(i));
        document.mark(u'\r', isOld ? std::string() : inList(1), 1).textBox(uint32_t(i), u"box\r");
    }
    document.endSection().stream("\5SummaryInformation",
                                 PropertySetWriter().byteString(SummaryProperty::title, "title").finish());
    if (!isOld) document.pieces(100).modifierList(hidden(0)).pieceModifier(1, 1);
    return document.finish();
}

TEST(WordDamage, OtherKindsAreRefused) {
    std::string workbook = CompoundFileWriter().stream("Workbook", std::string(5000, 'x')).finish();
    std::string noDocument = CompoundFileWriter().stream("WordDocument", std::string(5000, 'x')).finish();
    std::string tooShort = CompoundFileWriter().stream("WordDocument", "\xEC\xA5\xC1").finish();
    std::string inner =
        CompoundFileWriter().embedded("Object", "WordDocument", WordDocumentWriter().mainStream()).finish();
    for (const std::string& bytes : {std::string(), std::string("{\\rtf1 text}"), std::string("PK\3\4"),
                                     std::string("\xEC\xA5 text"), workbook, noDocument, tooShort, inner}) {
        EXPECT_EQ(statusOf(bytes), ReadStatus::wrongKind) << bytes.substr(0, 20);
    }
}

TEST(WordDamage, EncryptedDocumentsAreLocked) {
    constexpr unsigned kEncrypted = 0x0100;
    for (WordLayout layout : {WordLayout::word6, WordLayout::word97}) {
        WordDocumentWriter document(layout);
        EXPECT_EQ(statusOf(document.flags(kEncrypted).paragraph(u"text").finish()), ReadStatus::locked);
    }
    EXPECT_EQ(statusOf(CompoundFileWriter().stream("EncryptedPackage", "x").finish()), ReadStatus::locked);
}

TEST(WordDamage, TruncatedDocumentsGiveWhatIsThere) {
    for (WordLayout layout : {WordLayout::word6, WordLayout::word97}) {
        std::string whole = richDocument(layout);
        size_t longest = contentsOf(whole).text.size();
        EXPECT_GT(longest, 500u);
        for (size_t percent = 0; percent < 100; ++percent) {
            // Not a view: reads past the end must be seen.
            std::string cut(whole.data(), whole.size() * percent / 100);
            DocumentContents contents;
            Deadline deadline;
            EXPECT_NE(readDocFormat(cut, deadline, contents), ReadStatus::locked) << percent;
            EXPECT_LE(contents.text.size(), 2 * longest) << percent;
        }
    }
}

TEST(WordDamage, ACutThatTakesTheDirectoryLeavesTheText) {
    WordDocumentWriter document;
    for (int i = 0; i < 1000; ++i) document.narrow().paragraph(u"text");
    std::string whole = document.finish();
    std::string text(whole, 0, 0x200 + 0x800 + 2500);
    EXPECT_EQ(contentsOf(text).text.substr(0, 2500).size(), 2500u);
    EXPECT_EQ(contentsOf(text).text.substr(0, 10), u"text\ntext\n");
}

TEST(WordDamage, AWrongTableStreamIsMadeUpFor) {
    WordDocumentWriter document;
    std::string main = document.paragraph(u"text").mainStream(), table = document.tableStream();
    put16(main, 10, 0x1000); // says "0Table"
    EXPECT_EQ(
        contentsOf(CompoundFileWriter().stream("WordDocument", main).stream("1Table", table).finish()).text,
        u"text\n");
}

TEST(WordDamage, AnyByteMayLie) {
    for (WordLayout layout : {WordLayout::word6, WordLayout::word97}) {
        std::string whole = richDocument(layout);
        for (size_t offset = 0; offset < whole.size(); offset += offset < 0x700 ? 2 : 61) {
            for (unsigned value : {0xFFu, 0x7Fu, 0x01u}) {
                std::string bytes = whole;
                bytes[offset] = char(value);
                if (offset + 1 < bytes.size()) bytes[offset + 1] = char(value);
                DocumentContents contents;
                Deadline deadline;
                readDocFormat(bytes, deadline, contents);
                EXPECT_LE(contents.text.size(), 4 * whole.size()) << offset;
            }
        }
    }
}

TEST(WordDamage, PiecesThatShareTheirBytesAreBounded) {
    WordDocumentWriter document;
    document.narrow().pieces(1);
    for (int i = 0; i < 2000; ++i) document.text(u"x");
    std::string main = document.mainStream(), table = document.tableStream();
    // Every piece claims the whole text.
    size_t positions = table.size() - 2000 * 8 - 2001 * 4, descriptors = table.size() - 2000 * 8;
    for (uint32_t i = 0; i < 2000; ++i) {
        put32(table, positions + 4 * (i + 1), (i + 1) * 2000);
        put32(table, descriptors + 8 * i + 2, 0x800 * 2 | 0x40000000);
    }
    put32(main, 0x4C, 2000 * 2000);
    std::string bytes = CompoundFileWriter().stream("WordDocument", main).stream("1Table", table).finish();
    EXPECT_LE(contentsOf(bytes).text.size(), 3 * bytes.size());
}

TEST(WordDamage, StylesThatBuildOnThemselvesAreBounded) {
    WordDocumentWriter document;
    document.style({false, 1, {}, {}}).style({false, 0, hidden(0), {}}).style({false, 2, {}, {}});
    document.paragraph(u"one").paragraph(u"two", {}, 1).paragraph(u"three", {}, 2);
    EXPECT_EQ(textOf(document), u"one\ntwo\nthree\n");
}

} // namespace

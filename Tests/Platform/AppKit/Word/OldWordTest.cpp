// SPDX-License-Identifier: Apache-2.0
//
// Documents of Word 6 and 95, and those of Word 2.
#include "Tests/Platform/AppKit/Word/WordTesting.h"

#include "Tests/Support/LittleEndianWriter.h"

namespace {

constexpr unsigned kRussian = 0x419, kGreek = 0x408, kJapanese = 0x411, kMacintosh = 0x10000;

std::string oldFont(unsigned font) { return oldModifier(93, {font, 0}); }

// What a numbered or bulleted paragraph of Word 6 says of its marker.
std::string oldNumbering(unsigned level, unsigned format, std::string_view before, std::string_view after,
                         unsigned start = 1, unsigned font = 0) {
    std::string description;
    append8(description, format);
    append8(description, unsigned(before.size()));
    append8(description, unsigned(after.size()));
    description.resize(6);
    append16(description, font);
    description.resize(10);
    append16(description, start);
    description.resize(20);
    description += before;
    description += after;
    description.resize(52);
    return oldModifier(13, {level}) + oldModifier(12, {52}) + description;
}

TEST(OldWord, ReadsTextFieldsAndTables) {
    WordDocumentWriter document(WordLayout::word6);
    document.text(u"one ")
        .field(u"PAGE", u"7")
        .mark(u'\r')
        .text(u"cell")
        .mark(7)
        .mark(7, oldModifier(25, {1}));
    document.text(u"kept, ").text(u"hidden, ", oldModifier(92, {1})).text(u"deleted, ", oldModifier(65, {1}));
    document.text(u"kept", oldModifier(85, {1}) + oldModifier(99, {20, 0}) + oldModifier(92, {0}))
        .mark(u'\r');
    EXPECT_EQ(textOf(document), u"one 7\ncell\nkept, kept\n");
}

TEST(OldWord, DecodesTextByLanguageAndFont) {
    struct Case {
        const char* name;
        unsigned language, characterSet;
        std::u16string_view bytes, text;
    };
    constexpr Case kCases[] = {
        {"English", 0x409, 0, u"caf\xE9 \x80", u"café €"},
        {"Russian by language", kRussian, 0, u"\xCF\xF0\xE8", u"При"},
        {"Russian by font", 0x409, 204, u"\xCF\xF0\xE8", u"При"},
        {"Greek font in a Russian document", kRussian, 161, u"\xE1\xE2", u"αβ"},
        {"Greek by language", kGreek, 1, u"\xE1\xE2", u"αβ"},
        {"Japanese", kJapanese, 0, u"\x93\xFA\x96\x7B", u"日本"},
        {"Macintosh", 0x409 | kMacintosh, 0, u"caf\x8E", u"café"},
        {"Macintosh font", 0x409, 77, u"caf\x8E", u"café"},
        {"Central European font", 0x409, 238,
         u"p\xF8"
         u"ed",
         u"před"},
    };
    for (const Case& c : kCases) {
        WordDocumentWriter document(WordLayout::word6);
        document.language(c.language)
            .font(u"Other")
            .font(u"Some", c.characterSet)
            .text(c.bytes, oldFont(1))
            .mark(u'\r');
        EXPECT_EQ(textOf(document), std::u16string(c.text) + u"\n") << c.name;
    }
}

TEST(OldWord, TheStyleTellsTheFont) {
    WordDocumentWriter document(WordLayout::word6);
    document.font(u"Times").font(u"Times Cyr", 204).font(u"Symbol", 2);
    document.style({}).style({false, 0, oldFont(1), {}}).style({true, 0xFFF, oldFont(2), {}});
    document.text(u"\xCF\xF0").text(u"a", oldModifier(80, {2, 0})).mark(u'\r', {}, 1).paragraph(u"\xCF");
    EXPECT_EQ(textOf(document), u"Прα\nÏ\n");
}

TEST(OldWord, ReadsWideText) {
    WordDocumentWriter document(WordLayout::word6);
    document.flags(0x1000).language(kJapanese);
    // The writer has one byte a character: two of them are one here.
    document.text(u"\xE5\x65\x2C\x67\x0D").mark(0);
    std::string bytes = document.finish();
    EXPECT_EQ(contentsOf(bytes).text, u"日本\n");
}

TEST(OldWord, WritesMarkersOfParagraphsThatDescribeThem) {
    WordDocumentWriter document(WordLayout::word6);
    document.font(u"Times").font(u"Symbol", 2);
    std::string letters = oldNumbering(10, 4, "(", ")"), bullet = oldNumbering(11, 0, "\xB7", "", 1, 1);
    document.paragraph(u"one", letters).paragraph(u"two", letters).paragraph(u"none");
    document.paragraph(u"three", letters).paragraph(u"four", bullet);
    document.style({}).style({false, 0, {}, oldNumbering(10, 0, "", ".", 5)}).paragraph(u"five", {}, 1);
    EXPECT_EQ(textOf(document), u"\t(a)\tone\n\t(b)\ttwo\nnone\n\t(a)\tthree\n\t•\tfour\n\t5.\tfive\n");
}

TEST(OldWord, NotesAndTextBoxes) {
    WordDocumentWriter document(WordLayout::word6);
    document.text(u"one").anchor(0, {}, 2).mark(u'\r').text(u"two");
    document.note(WordDocumentWriter::footnotes, u" note\r").anchor(0).mark(u'\r');
    document.textBox(0, u"first\r").textBox(0, u"second\r").textBox(0, u"third\r");
    EXPECT_EQ(textOf(document), u"one\nfirst\nsecond\ntwo\nthird\n note\n");
}

TEST(OldWord, ReadsFastSavedDocuments) {
    WordDocumentWriter document(WordLayout::word6);
    document.pieces(4).text(u"one two three").mark(u'\r').pieceModifier(1, 92u << 1 | 1 << 8);
    EXPECT_EQ(textOf(document), u"one three\n");
}

TEST(OldWord, FindsPagesThatTheirTableLeavesOut) {
    WordDocumentWriter document(WordLayout::word6);
    document.text(u"kept").text(u"hidden", oldModifier(92, {1})).mark(u'\r');
    std::string stream = document.mainStream();
    // The page lies behind the text; the table loses its entry.
    constexpr unsigned kCharacterPage = 0x800 / 512 + 1;
    put32(stream, 0xBC, 4);
    put16(stream, 0x18A, kCharacterPage);
    put16(stream, 0x18E, 1);
    EXPECT_EQ(contentsOf(CompoundFileWriter().stream("WordDocument", stream).finish()).text, u"kept\n");
}

TEST(OldWord, ReadsTheBareStreamsOfWord2) {
    std::string_view text = "one\r\n\x13SYMBOL 183\x15two \xE9\r\n";
    std::string bytes(0x180, '\0');
    put16(bytes, 0, 0xA5DB);
    put16(bytes, 2, 0x2D);
    put32(bytes, 24, 0x180);
    put32(bytes, 28, uint32_t(0x180 + text.size()));
    put32(bytes, 0x34, uint32_t(text.size()));
    bytes += text;
    EXPECT_EQ(contentsOf(bytes).text, u"one\ntwo é\n");
    put16(bytes, 10, 0x0100);
    EXPECT_EQ(statusOf(bytes), ReadStatus::locked);
    EXPECT_EQ(statusOf(bytes.substr(0, 0x40)), ReadStatus::wrongKind);
}

TEST(OldWord, BeginsAPageBeforeAParagraphThatAsksForOne) {
    WordDocumentWriter document(WordLayout::word6);
    document.paragraph(u"one").paragraph(u"two", oldModifier(9, {1}));
    document.paragraph(u"three", oldModifier(9, {1}) + oldModifier(24, {1}));
    EXPECT_EQ(textOf(document), u"one\n\ftwo\nthree\n");
}

} // namespace

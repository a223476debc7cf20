// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/Word/WordTesting.h"

namespace {

using namespace std::string_view_literals;

TEST(WordText, TurnsMarksIntoCharacters) {
    struct Case {
        const char* name;
        std::u16string_view stored, text;
    };
    constexpr Case kCases[] = {
        {"paragraphs", u"one\rtwo\r", u"one\ntwo\n"},
        {"an empty document", u"\r", u"\n"},
        {"no last mark", u"one\rtwo", u"one\ntwo"},
        {"line break", u"one\x0Btwo\r", u"one\u2028two\n"},
        {"column break", u"one\x0Etwo\r", u"one\u2028two\n"},
        {"page break", u"one\x0Ctwo\r", u"one\ftwo\n"},
        {"tab", u"one\ttwo\r", u"one\ttwo\n"},
        {"hyphens",
         u"no\x1E"
         u"break so\x1F"
         u"ft\r",
         u"no\u2011break so\u00ADft\n"},
        {"no-break space", u"a\u00A0b\r", u"a\u00A0b\n"},
        {"cells", u"one\x07two\x07\r", u"one\ntwo\n\n"},
        {"pictures and drawings",
         u"a\x01"
         u"b\x08"
         u"c\r",
         u"abc\n"},
        {"stray marks",
         u"a\x02"
         u"b\x05"
         u"c\n\r",
         u"abc\n"},
        {"no sign at all", u"a\0b\r"sv, u"ab\n"},
        {"beyond the first plane", u"\U0001F600\r", u"\U0001F600\n"},
        {"parentheses", u"f(x)\r", u"f(x)\n"},
    };
    for (const Case& c : kCases) {
        for (bool isNarrow : {false, true}) {
            if (isNarrow && c.stored.find(u'\xD83D') != c.stored.npos) continue;
            WordDocumentWriter document;
            if (isNarrow) document.narrow();
            document.text(c.stored);
            EXPECT_EQ(textOf(document), c.text) << c.name << (isNarrow ? ", narrow" : "");
        }
    }
}

TEST(WordText, NarrowTextIsWindowsLatin) {
    WordDocumentWriter document;
    document.narrow().text(u"\x93quoted\x94 \x96 \x80 \xE9").mark(u'\r');
    EXPECT_EQ(textOf(document), u"“quoted” – € é\n");
}

TEST(WordText, PutsPiecesInOrder) {
    std::u16string text;
    for (int i = 0; i < 200; ++i) text += u"line " + std::u16string(1, char16_t(u'A' + i % 26)) + u"\r";
    std::u16string expected = text;
    for (char16_t& unit : expected) unit = unit == u'\r' ? u'\n' : unit;
    for (uint32_t length : {1u, 7u, 100u, 5000u}) {
        WordDocumentWriter document;
        EXPECT_EQ(textOf(document.pieces(length).text(text)), expected) << length;
    }
}

TEST(WordText, ReadsDocumentsWithoutAPieceTable) {
    WordDocumentWriter wide, narrow;
    EXPECT_EQ(textOf(wide.withoutPieceTable().paragraph(u"wide – text")), u"wide – text\n");
    EXPECT_EQ(textOf(narrow.narrow().withoutPieceTable().paragraph(u"narrow text")), u"narrow text\n");
}

TEST(WordText, RowEndsAreNotText) {
    WordDocumentWriter document;
    document.text(u"one").mark(7).text(u"two").mark(7).mark(7, endsRow());
    document.text(u"three").mark(7).text(u"four").mark(7).mark(7, endsRow());
    document.paragraph(u"behind");
    EXPECT_EQ(textOf(document), u"one\ntwo\nthree\nfour\nbehind\n");
}

TEST(WordText, RowEndsOfNestedTablesAreNotText) {
    WordDocumentWriter document;
    document.text(u"inner").mark(u'\r', modifier(0x244B, {1}));
    document.mark(u'\r', modifier(0x244C, {1})).text(u"outer").mark(7).mark(7, endsRow());
    EXPECT_EQ(textOf(document), u"inner\nouter\n");
}

TEST(WordText, FollowsModifiersToTheDataStream) {
    std::string far = endsRow();
    WordDocumentWriter document;
    document.data(std::string(10, 'x') + char(far.size()) + '\0' + far);
    document.text(u"cell").mark(7).mark(7, modifier(0x6646, {10, 0, 0, 0})).paragraph(u"behind");
    EXPECT_EQ(textOf(document), u"cell\nbehind\n");
}

TEST(WordText, FieldsGiveTheirResult) {
    struct Case {
        const char* name;
        std::u16string_view stored, text;
    };
    constexpr Case kCases[] = {
        {"plain",
         u"a\x13PAGE\x14"
         u"7\x15z\r",
         u"a7z\n"},
        {"without a result", u"a\x13XE word\x15z\r", u"az\n"},
        {"nested in the instruction",
         u"a\x13IF \x13PAGE\x14"
         u"7\x15 = 1\x14yes\x15z\r",
         u"ayesz\n"},
        {"nested in the result",
         u"a\x13TOC\x14in \x13PAGE\x14"
         u"7\x15\x15z\r",
         u"ain 7z\n"},
        {"with paragraphs in the result", u"\x13TOC\x14one\rtwo\x15\r", u"one\ntwo\n"},
        {"an end without a begin", u"a\x15z\r", u"az\n"},
        {"a separator without a begin", u"a\x14z\r", u"az\n"},
        {"two separators", u"a\x13X\x14one\x14two\x15z\r", u"aonetwoz\n"},
    };
    for (const Case& c : kCases) {
        WordDocumentWriter document;
        EXPECT_EQ(textOf(document.text(c.stored)), c.text) << c.name;
    }
    WordDocumentWriter document;
    document.field(u"HYPERLINK \"https://example.org\"", u"a link").mark(u'\r');
    EXPECT_EQ(textOf(document), u"a link\n");
}

TEST(WordText, SymbolsBecomeCharacters) {
    auto symbol = [](unsigned font, unsigned low, unsigned high) {
        return modifier(0x6A09, {font, 0, low, high}) + modifier(0x0855, {1});
    };
    WordDocumentWriter document;
    document.font(u"Times New Roman").font(u"Symbol", 2).font(u"Wingdings", 2).font(u"Runes", 2);
    document.text(u"(", symbol(1, 0x61, 0xF0))
        .text(u"(", symbol(2, 0xFC, 0xF0))
        .text(u"(", symbol(2, 0x40, 0xF0));
    document.text(u"(", symbol(0, 0x14, 0x20)).text(u"(not)").mark(u'\r');
    document.text(u"\uF061\uF062", fontOf(1))
        .text(u"\uF0E0", fontOf(2))
        .text(u"\uF041", fontOf(3))
        .mark(u'\r');
    EXPECT_EQ(textOf(document), u"α✓\uF040—(not)\nαβ→\uF041\n");
}

TEST(WordText, TheStyleTellsTheFontOfSymbols) {
    WordDocumentWriter document;
    document.font(u"Times New Roman").font(u"Symbol", 2);
    document.style({}).style({false, 0, fontOf(1), {}}).style({true, 0xFFF, fontOf(1), {}});
    document.paragraph(u"\uF061", {}, 1).text(u"\uF062", characterStyle(2)).mark(u'\r');
    EXPECT_EQ(textOf(document), u"α\nβ\n");
}

TEST(WordText, StopsAtTheDeadline) {
    WordDocumentWriter document;
    for (int i = 0; i < 3000; ++i) document.paragraph(u"text", {}, unsigned(i % 2));
    std::string bytes = document.finish();
    DocumentContents contents;
    Deadline deadline(std::chrono::duration<double>(0));
    EXPECT_EQ(readDocFormat(bytes, deadline, contents), ReadStatus::read);
    EXPECT_LT(contents.text.size(), 3000u * 5);
}

TEST(WordText, BeginsAPageBeforeAParagraphThatAsksForOne) {
    const std::string begins = modifier(0x2407, {1}), beginsNot = modifier(0x2407, {0});
    auto document = [&] {
        WordDocumentWriter writer;
        writer.style({}).style({false, 0, {}, begins}).style({false, 1, {}, {}});
        return writer;
    };
    struct {
        const char* name;
        std::string paragraph;
        unsigned style;
        std::u16string_view text;
    } const cases[] = {
        {"own modifier", begins, 0, u"one\n\ftwo\n"},
        {"style", {}, 1, u"one\n\ftwo\n"},
        {"style below", {}, 2, u"one\n\ftwo\n"},
        {"taken back", beginsNot, 1, u"one\ntwo\n"},
        {"in a table", begins + modifier(0x2416, {1}), 0, u"one\ntwo\n"},
        {"list item", begins + inList(1), 0, u"one\n\ftwo\n"},
    };
    for (const auto& c : cases) {
        WordDocumentWriter writer = document();
        writer.paragraph(u"one").paragraph(u"two", c.paragraph, c.style);
        EXPECT_EQ(textOf(writer), c.text) << c.name;
    }
    WordDocumentWriter first = document();
    EXPECT_EQ(textOf(first.paragraph(u"one", begins)), u"one\n");
    WordDocumentWriter section = document();
    section.text(u"one").mark(u'\f').endSection().paragraph(u"two", begins).endSection();
    EXPECT_EQ(textOf(section), u"one\ftwo\n");
}

} // namespace

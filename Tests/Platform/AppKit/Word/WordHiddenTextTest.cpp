// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/Word/WordTesting.h"

namespace {

constexpr unsigned kAsStyle = 0x80, kOppositeOfStyle = 0x81;

TEST(WordHiddenText, SwitchesCountOutrightAndAgainstTheStyle) {
    struct Case {
        const char* name;
        bool styleHides;
        std::string modifiers;
        std::u16string_view text;
    };
    const Case kCases[] = {
        {"nothing said", false, {}, u"text\n"},
        {"hidden", false, hidden(), u"\n"},
        {"not hidden", false, hidden(0), u"text\n"},
        {"as the style", false, hidden(kAsStyle), u"text\n"},
        {"unlike the style", false, hidden(kOppositeOfStyle), u"\n"},
        {"nothing said, hiding style", true, {}, u"\n"},
        {"hidden, hiding style", true, hidden(), u"\n"},
        {"not hidden, hiding style", true, hidden(0), u"text\n"},
        {"as the hiding style", true, hidden(kAsStyle), u"\n"},
        {"unlike the hiding style", true, hidden(kOppositeOfStyle), u"text\n"},
        {"the last one counts", false, hidden() + hidden(0), u"text\n"},
        {"plain takes it back", false, hidden() + modifier(0x2A33, {0}), u"text\n"},
        {"deleted", false, deleted(), u"\n"},
        {"deleted, the usual way", false, deleted(kOppositeOfStyle), u"\n"},
        {"not deleted", false, deleted(0), u"text\n"},
        {"inserted", false, modifier(0x0801, {1}), u"text\n"},
        {"behind modifiers of all lengths", false,
         modifier(0x2A3E, {1}) + modifier(0x4A43, {1, 0}) + modifier(0x6870, {1, 2, 3, 4}) +
             modifier(0xCA47, {3, 0x3C, 8, 0}) + modifier(0xEA08, {1, 2, 3}) + hidden(),
         u"\n"},
    };
    for (const Case& c : kCases) {
        WordDocumentWriter document;
        document.style({}).style({false, 0, c.styleHides ? hidden() : std::string(), {}});
        document.text(u"text", c.modifiers).mark(u'\r', {}, 1, hidden(0));
        EXPECT_EQ(textOf(document), c.text) << c.name;
    }
}

TEST(WordHiddenText, StylesBuildOnEachOther) {
    WordDocumentWriter document;
    document.style({}).style({false, 0, hidden(), {}}).style({false, 1, {}, {}});
    document.style({false, 1, hidden(kOppositeOfStyle), {}})
        .style({false, 99, {}, {}})
        .style({false, 5, hidden(), {}});
    for (unsigned style = 0; style < 7; ++style) {
        document.text(std::u16string(1, char16_t(u'0' + style))).mark(u'\r', {}, style, hidden(0));
    }
    EXPECT_EQ(textOf(document), u"0\n\n\n3\n4\n\n6\n");
}

TEST(WordHiddenText, ACharacterStyleTurnsTheParagraphsStyleAround) {
    WordDocumentWriter document;
    document.style({}).style({false, 0, hidden(), {}}).style({true, 0xFFF, hidden(), {}});
    document.text(u"a").text(u"b", characterStyle(2)).mark(u'\r');
    document.text(u"c").text(u"d", characterStyle(2)).mark(u'\r', {}, 1, hidden(0));
    EXPECT_EQ(textOf(document), u"a\nd\n");
}

TEST(WordHiddenText, AHiddenMarkKeepsVisibleTextApart) {
    WordDocumentWriter document;
    document.text(u"one").mark(u'\r', {}, 0, hidden()).paragraph(u"two");
    document.text(u"gone", hidden()).mark(u'\r', {}, 0, hidden()).paragraph(u"three");
    EXPECT_EQ(textOf(document), u"one\ntwo\nthree\n");
}

TEST(WordHiddenText, ADeletedMarkJoinsParagraphs) {
    WordDocumentWriter document;
    document.text(u"one ").mark(u'\r', {}, 0, deleted()).paragraph(u"two");
    EXPECT_EQ(textOf(document), u"one two\n");
}

TEST(WordHiddenText, FieldsStayBalancedInHiddenText) {
    WordDocumentWriter document;
    document.text(u"a\x13 XE ", hidden()).text(u"entry").text(u"\x15", hidden()).paragraph(u"z");
    EXPECT_EQ(textOf(document), u"z\n");
}

TEST(WordHiddenText, PiecesHaveModifiersOfTheirOwn) {
    WordDocumentWriter document;
    document.pieces(4).text(u"one two sixfour").mark(u'\r');
    document.modifierList(hidden()).modifierList(deleted());
    document.pieceModifier(1, 0 << 1 | 1).pieceModifier(2, 0x41 << 1 | 1 << 8);
    EXPECT_EQ(textOf(document), u"one our\n");
}

} // namespace

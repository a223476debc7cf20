// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/NumberCode.h"

#include "Tests/Platform/AppKit/Word/WordTesting.h"

namespace {

using namespace std::string_view_literals;

constexpr unsigned kLegal = 0x04, kRestartsByLimit = 0x08;

WordListLevel level(unsigned format, std::u16string_view text, uint32_t start = 1) {
    return {start, format, std::u16string(text), 0, 0, {}};
}

// A list of the three levels "1.", "1.a)" and "i".
WordList outline(uint32_t identifier = 1) {
    return {identifier,
            {level(Word::NumberCode::decimal, u"\0."sv), level(Word::NumberCode::lowerLetter, u"\0.\1)"sv),
             level(Word::NumberCode::lowerRoman, u"\2")}};
}

// Paragraphs of these levels of the list 1, each with its level as text.
std::u16string textOfLevels(WordDocumentWriter& document, std::string_view levels, unsigned list = 1) {
    for (char digit : levels) {
        unsigned number = unsigned(digit - '0');
        document.paragraph(std::u16string(1, char16_t(digit)), inList(list, number));
    }
    return textOf(document);
}

TEST(WordList, WritesNumbersInTheirFormat) {
    struct Case {
        uint8_t format;
        uint32_t number;
        std::u16string_view text;
    };
    constexpr Case kCases[] = {
        {Word::NumberCode::decimal, 0, u"0"},
        {Word::NumberCode::decimal, 4294967295, u"4294967295"},
        {Word::NumberCode::upperRoman, 1994, u"MCMXCIV"},
        {Word::NumberCode::lowerRoman, 3999, u"mmmcmxcix"},
        {Word::NumberCode::lowerRoman, 4000, u"4000"},
        {Word::NumberCode::lowerRoman, 0, u"0"},
        {Word::NumberCode::upperLetter, 1, u"A"},
        {Word::NumberCode::upperLetter, 26, u"Z"},
        {Word::NumberCode::lowerLetter, 27, u"aa"},
        {Word::NumberCode::lowerLetter, 54, u"bbb"},
        {Word::NumberCode::lowerLetter, 781, u"781"},
        {Word::NumberCode::lowerLetter, 0, u"0"},
        {Word::NumberCode::ordinal, 1, u"1st"},
        {Word::NumberCode::ordinal, 12, u"12th"},
        {Word::NumberCode::ordinal, 22, u"22nd"},
        {Word::NumberCode::ordinal, 103, u"103rd"},
        {Word::NumberCode::leadingZero, 7, u"07"},
        {Word::NumberCode::leadingZero, 12, u"12"},
        {Word::NumberCode::bullet, 7, u""},
        {Word::NumberCode::none, 7, u""},
        {99, 7, u"7"},
    };
    for (const Case& c : kCases) {
        std::u16string text;
        appendNumber(text, c.number, Word::numberFormatOf(c.format));
        EXPECT_EQ(text, c.text) << c.number << " in format " << int(c.format);
    }
}

TEST(WordList, CountsLevels) {
    struct Case {
        const char* name;
        std::string_view levels;
        std::u16string_view text;
    };
    constexpr Case kCases[] = {
        {"one level", "000", u"\t1.\t0\n\t2.\t0\n\t3.\t0\n"},
        {"two levels", "01101", u"\t1.\t0\n\t1.a)\t1\n\t1.b)\t1\n\t2.\t0\n\t2.a)\t1\n"},
        {"back from the third level", "0122122",
         u"\t1.\t0\n\t1.a)\t1\n\ti\t2\n\tii\t2\n\t1.b)\t1\n\ti\t2\n\tii\t2\n"},
        {"a first level that is not there", "1", u"\t1.a)\t1\n"},
    };
    for (const Case& c : kCases) {
        WordDocumentWriter document;
        EXPECT_EQ(textOfLevels(document.list(outline()).listOverride({}), c.levels), c.text) << c.name;
    }
}

TEST(WordList, RestartsOnlyBelowTheLimit) {
    WordList list = outline();
    list.levels[2].flags = kRestartsByLimit;
    list.levels[2].restartLimit = 1; // items of the first level restart it, those of the second do not
    WordDocumentWriter document;
    EXPECT_EQ(textOfLevels(document.list(list).listOverride({}), "012120122"),
              u"\t1.\t0\n\t1.a)\t1\n\ti\t2\n\t1.b)\t1\n\tii\t2\n\t2.\t0\n\t2.a)\t1\n\ti\t2\n\tii\t2\n");
}

TEST(WordList, LegalNumbersAreDigits) {
    WordList list{
        1, {level(Word::NumberCode::upperRoman, u"\0"sv), level(Word::NumberCode::lowerLetter, u"\0.\1"sv)}};
    list.levels[1].flags = kLegal;
    WordDocumentWriter document;
    EXPECT_EQ(textOfLevels(document.list(list).listOverride({}), "0011"),
              u"\tI\t0\n\tII\t0\n\t2.1\t1\n\t2.2\t1\n");
}

TEST(WordList, ListsAndTheirOverridesCount) {
    WordListLevel letters = level(Word::NumberCode::upperLetter, u"\0)"sv, 3);
    WordDocumentWriter document;
    document.list(outline(7)).list(outline(8));
    document.listOverride({7, {}}).listOverride({8, {}}).listOverride({7, {}});
    document.listOverride({7, {{0, 10, {}}}}).listOverride({8, {{0, 1, letters}}}).listOverride({99, {}});
    const unsigned kNumbers[] = {1, 2, 1, 3, 4, 4, 1, 5, 5, 6, 7, 0};
    std::u16string_view expected =
        u"\t1.\tx\n\t1.\tx\n\t2.\tx\n\t3.\tx\n\t10.\tx\n\t11.\tx\n\t12.\tx\n\tC)\tx\n"
        u"\tD)\tx\nx\nx\nx\n";
    for (unsigned number : kNumbers) document.paragraph(u"x", inList(number));
    EXPECT_EQ(textOf(document), expected);
}

TEST(WordList, BulletsAreCharacters) {
    auto bullet = [](char16_t sign, unsigned font) {
        return WordList{sign, {{1, Word::NumberCode::bullet, std::u16string(1, sign), 0, 0, fontOf(font)}}};
    };
    WordDocumentWriter document;
    document.font(u"Times New Roman").font(u"Symbol", 2).font(u"Wingdings", 2).font(u"Runes", 2);
    document.list(bullet(0xF0B7, 1)).list(bullet(0xF0A7, 2)).list(bullet(u'o', 0)).list(bullet(0xF041, 3));
    document.listOverride({0xF0B7, {}})
        .listOverride({0xF0A7, {}})
        .listOverride({u'o', {}})
        .listOverride({0xF041, {}});
    for (unsigned list = 1; list < 5; ++list) document.paragraph(u"x", inList(list));
    EXPECT_EQ(textOf(document), u"\t•\tx\n\t▪\tx\n\to\tx\n\t•\tx\n");
}

TEST(WordList, StylesNameListsToo) {
    WordDocumentWriter document;
    document.list(outline()).listOverride({});
    document.style({}).style({false, 0, {}, inList(1, 0)}).style({false, 1, {}, modifier(0x260A, {1})});
    document.paragraph(u"one", {}, 1)
        .paragraph(u"two", {}, 2)
        .paragraph(u"none", inList(0), 1)
        .paragraph(u"three", {}, 1);
    EXPECT_EQ(textOf(document), u"\t1.\tone\n\t1.a)\ttwo\nnone\n\t2.\tthree\n");
}

TEST(WordList, MarkersStandInFrontOfTheWholeParagraph) {
    WordDocumentWriter document;
    document.list(outline()).listOverride({});
    document
        .text(u"one\x0B"
              u"and ")
        .field(u"PAGE", u"7")
        .text(u"gone", hidden())
        .mark(u'\r', inList(1));
    document.mark(u'\r', inList(1)).text(u"cell").mark(7, inList(1)).mark(7, inList(1) + endsRow());
    document.text(u"joined ").mark(u'\r', inList(1), 0, deleted()).paragraph(u"on", inList(1));
    document.text(u"page\fbreak").mark(u'\r', inList(1));
    EXPECT_EQ(textOf(document),
              u"\t1.\tone\u2028and 7\n\t2.\t\n\t3.\tcell\n\t4.\tjoined on\n\t5.\tpage\fbreak\n");
}

TEST(WordList, TheEndOfASectionEndsAnItem) {
    WordDocumentWriter document;
    document.list(outline()).listOverride({});
    document.anchor(1).paragraph(u"zero").textBox(1, u"box\f\r");
    document.text(u"one").mark(u'\f', inList(1)).endSection().paragraph(u"two", inList(1)).endSection();
    EXPECT_EQ(textOf(document), u"zero\nbox\f\n\t1.\tone\f\t2.\ttwo\n");
}

TEST(WordList, AllMarkersTogetherAreBounded) {
    WordList list{1, {{1, Word::NumberCode::decimal, std::u16string(64, u'x'), 0, 0, {}}}};
    WordDocumentWriter document;
    document.list(list).listOverride({}).style({}).style({false, 0, {}, inList(1)});
    document.text(std::u16string(20000, u'\r')).mark(u'\r', {}, 1);
    std::string bytes = document.finish();
    EXPECT_LE(contentsOf(bytes).text.size(), 3 * bytes.size());
}

TEST(WordList, MarkersAreBounded) {
    WordList list{1, {{1, Word::NumberCode::decimal, std::u16string(30000, u'x'), 0, 0, {}}}};
    WordDocumentWriter document;
    std::u16string text = textOfLevels(document.list(list).listOverride({}), "0");
    EXPECT_EQ(text, u"\t" + std::u16string(64, u'x') + u"\t0\n");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/RTF/RTFTesting.h"

#include <string>

namespace {

struct EncodingCase {
    std::string_view rtf;
    std::u16string_view text;
};

template <size_t count>
void expectDecoded(const EncodingCase (&cases)[count]) {
    for (const EncodingCase& c : cases) EXPECT_EQ(textOf(c.rtf), c.text) << c.rtf;
}

TEST(RTFEncoding, isTheDocumentsWithoutAFont) {
    constexpr EncodingCase kCases[] = {
        {"{\\rtf1 \\'e9}", u"\u00E9"},
        {"{\\rtf1\\ansi \\'80\\'e9}", u"\u20AC\u00E9"},
        {"{\\rtf1\\mac \\'8e}", u"\u00E9"},
        {"{\\rtf1\\pc \\'82}", u"\u00E9"},
        {"{\\rtf1\\pca \\'d5}", u"\u0131"},
        {"{\\rtf1\\ansi\\ansicpg1251 \\'e9}", u"\u0439"},
        {"{\\rtf1\\ansi\\ansicpg1250 \\'e8}", u"\u010D"},
        {"{\\rtf1\\mac\\ansicpg10000 \\'8e}", u"\u00E9"},
        {"{\\rtf1\\ansi\\ansicpg932 \\'82\\'a0}", u"\u3042"},
        {"{\\rtf1\\ansi\\ansicpg65001 \xC3\xA9\xF0\x9F\x98\x80}", u"\u00E9\U0001F600"},
        {"{\\rtf1\\ansi\\ansicpg0 \\'e9}", u"\u00E9"},
        {"{\\rtf1\\ansi\\ansicpg-1 \\'e9}", u"\u00E9"},
        {"{\\rtf1\\ansi\\ansicpg999999 \\'e9}", u"\u00E9"},
        {"{\\rtf1\\ansi\\ansicpg1251 \xE9}", u"\u0439"},
        // Bytes cannot be of a page of wider units.
        {"{\\rtf1\\ansi\\ansicpg1200 a\\'e9}", u"a\u00E9"},
        {"{\\rtf1\\ansi\\ansicpg1201 a\\'e9}", u"a\u00E9"},
        {"{\\rtf1\\ansi\\ansicpg12000 abcd\\'e9}", u"abcd\u00E9"},
        {"{\\rtf1\\ansi\\ansicpg12001 abcd\\'e9}", u"abcd\u00E9"},
    };
    expectDecoded(kCases);
}

TEST(RTFEncoding, isThatOfTheFontsCharset) {
    struct {
        int charset;
        std::string_view bytes;
        std::u16string_view text;
    } const kCases[] = {
        {0, "\\'e9", u"\u00E9"},        {1, "\\'8e", u"\u00E9"},        {77, "\\'8e", u"\u00E9"},
        {78, "\\'82\\'a0", u"\u3042"},  {128, "\\'82\\'a0", u"\u3042"}, {129, "\\'b0\\'a1", u"\uAC00"},
        {130, "\\'88\\'61", u"\uAC00"}, {134, "\\'b0\\'a1", u"\u554A"}, {136, "\\'a4\\'40", u"\u4E00"},
        {161, "\\'e1", u"\u03B1"},      {162, "\\'fd", u"\u0131"},      {163, "\\'f0", u"\u0111"},
        {177, "\\'e0", u"\u05D0"},      {178, "\\'c7", u"\u0627"},      {186, "\\'e8", u"\u010D"},
        {204, "\\'e9", u"\u0439"},      {222, "\\'a1", u"\u0E01"},      {238, "\\'e8", u"\u010D"},
        {254, "\\'82", u"\u00E9"},      {255, "\\'82", u"\u00E9"},      {200, "\\'8e", u"\u00E9"},
    };
    for (const auto& c : kCases) {
        std::string rtf = "{\\rtf1\\mac{\\fonttbl{\\f3\\fnil\\fcharset" + std::to_string(c.charset) +
                          " Name;}}\\f3 a" + std::string(c.bytes) + "}";
        EXPECT_EQ(textOf(rtf), u"a" + std::u16string(c.text)) << rtf;
    }
}

TEST(RTFEncoding, followsTheFont) {
    constexpr EncodingCase kCases[] = {
        // Without groups in the table.
        {"{\\rtf1{\\fonttbl\\f0\\fnil\\fcharset204 A;\\f1\\fcharset161 B;}\\f0\\'e1\\f1\\'e1}",
         u"\u0431\u03B1"},
        // The document's font, until another is chosen, and after \plain.
        {"{\\rtf1\\deff1{\\fonttbl{\\f1\\fcharset204 A;}{\\f2\\fcharset0 B;}}\\'e1\\f2\\'e1\\plain\\'e1}",
         u"\u0431\u00E1\u0431"},
        // The end of a group restores the font.
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset204 A;}{\\f2\\fcharset0 B;}}\\f1{\\f2\\'e1}\\'e1}",
         u"\u00E1\u0431"},
        // A code page of the font's own.
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset0\\cpg1251 A;}}\\f1\\'e1}", u"\u0431"},
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset204\\cpg1200 A;}{\\f2\\cpg1201 B;}}\\f1\\'e1\\f2\\'e1}",
         u"\u0431\u00E1"},
        // A font that no table has, numbers out of range.
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset204 A;}}\\f9\\'e1\\f-1\\'e1\\f2147483647\\'e1}",
         u"\u00E1\u00E1\u00E1"},
        {"{\\rtf1{\\fonttbl{\\f70000\\fcharset204 A;}}\\f70000\\'e1}", u"\u00E1"},
        {"{\\rtf1{\\fonttbl{\\f65534\\fcharset204 A;}}\\f65534\\'e1}", u"\u0431"},
        // The active direction's font is told by \f last.
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset177 A;}{\\f2\\fcharset0 B;}}{\\ltrch\\af2\\rtlch\\f1\\'e0}}",
         u"\u05D0"},
        // Names and what else stands in the table.
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset204{\\*\\panose 0202}A{\\*\\falt Symbol};}}\\f1\\'e1}", u"\u0431"},
        // The charset holds in the table only.
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset204 A;}}\\f1\\fcharset0\\cpg1252\\'e1}", u"\u0431"},
    };
    expectDecoded(kCases);
}

TEST(RTFEncoding, joinsBytesOfOneCharacter) {
    constexpr EncodingCase kCases[] = {
        {"{\\rtf1\\ansicpg932 \\'83A}", u"\u30A2"},
        {"{\\rtf1\\ansicpg932 \\'82\\'60bc}", u"\uFF21bc"},
        {"{\\rtf1\\ansicpg932 \\'82\n\\'a0}", u"\u3042"},
        {"{\\rtf1\\ansicpg932 \\'83\\\\x}", u"\u30BDx"},
        {"{\\rtf1\\ansicpg932 \x82\xA0\x82\\'a2}", u"\u3042\u3044"},
        {"{\\rtf1\\ansicpg932 {\\'82}{\\'a0}}", u"\u3042"},
        {"{\\rtf1\\ansicpg932 \\'82\\b\\'a0}", u"\u3042"},
        {"{\\rtf1\\ansicpg932 a\\'82\\'a0\\par\\'82\\'a0}", u"a\u3042\n\u3042"},
        {"{\\rtf1\\ansicpg932 \\uc2\\'82\\'a0\\u12356\\'82\\'a2}", u"\u3042\u3044"},
        // A new encoding ends the run.
        {"{\\rtf1\\ansicpg932{\\fonttbl{\\f1\\fcharset204 A;}}\\'82\\'a0{\\f1\\'e1}\\'82\\'a2}",
         u"\u3042\u0431\u3044"},
        // Hidden bytes are no part of it.
        {"{\\rtf1\\ansicpg932 \\'82\\'a0{\\v\\'82}\\'82\\'a2}", u"\u3042\u3044"},
        // The two bytes never meet across an end of text.
        {"{\\rtf1\\ansicpg932 {\\footnote\\'82\\'a0}b\\'82\\'a2}", u"b\u3044\n\u3042\n"},
    };
    expectDecoded(kCases);
}

TEST(RTFEncoding, takesALeadByteAloneForAWesternLetter) {
    constexpr EncodingCase kCases[] = {
        {"{\\rtf1\\ansicpg932 a\\'96\\par b}", u"a\u2013\nb"},
        {"{\\rtf1\\ansicpg932 a\\'e9", u"a\u00E9"},
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset128 A;}}\\f1 1990\\'962000}", u"1990\u20132000"},
        {"{\\rtf1{\\fonttbl{\\f1\\fcharset134 A;}}\\f1 a \\'96 b}", u"a \u2013 b"},
        // Two bytes are a character, if not one that is known.
        {"{\\rtf1\\ansicpg932 a\\'fc\\'fcb}", u"a\uFFFDb"},
    };
    expectDecoded(kCases);
}

TEST(RTFEncoding, ofSymbolFontsIsThatOfTheirSigns) {
    constexpr EncodingCase kCases[] = {
        {"{\\rtf1{\\fonttbl{\\f3\\froman\\fcharset2 Symbol;}}\\f3 a\\'b7}", u"\u03B1\u2022"},
        {"{\\rtf1{\\fonttbl{\\f3\\ftech Symbol;}}\\f3 a}", u"\u03B1"},
        {"{\\rtf1{\\fonttbl\\f3\\ftech Symbol;\\f4 Times;}\\f3 a\\f4 a}", u"\u03B1a"},
        {"{\\rtf1{\\fonttbl{\\f3\\fnil\\fcharset2 Wingdings;}}\\f3 l \\'a7\\tab x}",
         u"\u25CF \u25AA\t\u2327"},
        {"{\\rtf1{\\fonttbl{\\f3\\fnil\\fcharset2 Marlett;}}\\f3 l \\'a7}", u"\uF06C \uF0A7"},
        {"{\\rtf1{\\fonttbl{\\f3\\fnil\\fcharset0 Symbolic;}}\\f3 a}", u"a"},
        {"{\\rtf1{\\fonttbl{\\f3\\fnil\\fcharset0 Symbol;}}\\f3 a}", u"a"},
        // The same signs by their private-use characters.
        {"{\\rtf1{\\fonttbl{\\f3\\fcharset2 Symbol;}{\\f4\\fcharset2 Wingdings;}{\\f5 A;}}"
         "\\f3\\u-3999?\\u8226?\\f4\\u-3844?\\f5\\u-3844?}",
         u"\u03B1\u2022\u2713\uF0FC"},
    };
    expectDecoded(kCases);
}

TEST(RTFEncoding, ofLongRunsIsRightThroughout) {
    std::string bytes;
    std::u16string text;
    for (int i = 0; i < 3000; ++i) {
        bytes += i % 700 == 699 ? "\xE9" : "abcdefghij";
        text += i % 700 == 699 ? u"\u00E9" : u"abcdefghij";
    }
    EXPECT_EQ(textOf("{\\rtf1\\ansi " + bytes + "}"), text);
}

} // namespace

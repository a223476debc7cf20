// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/RTF/RTFTesting.h"

#include <string>

namespace {

using namespace std::string_view_literals;

TEST(RTFReader, readsTheCharactersAndBreaksOfEachControl) {
    constexpr RTFTextCase kCases[] = {
        {"paragraph", "a\\par b", u"a\nb"},
        {"last paragraph", "a\\par", u"a\n"},
        {"no paragraph end is added", "a", u"a"},
        {"escaped LF", "a\\\nb", u"a\nb"},
        {"escaped CR", "a\\\rb", u"a\nb"},
        {"escaped CR LF", "a\\\r\nb", u"a\nb"},
        {"raw line ends", "a\r\nb\nc\rd", u"abcd"},
        {"line", "a\\line b", u"a\u2028b"},
        {"tab", "a\\tab b", u"a\tb"},
        {"raw tab", "a\tb", u"a\tb"},
        {"escaped tab", "a\\\tb", u"a\tb"},
        {"page", "a\\page b", u"a\fb"},
        {"section", "a\\sect b", u"a\fb"},
        {"column", "a\\column b", u"a\fb"},
        {"no-break space", "a\\~b", u"a\u00A0b"},
        {"no-break hyphen", "a\\_b", u"a\u2011b"},
        {"soft hyphen", "a\\-b", u"ab"},
        {"formula mark and index mark", "a\\|b\\:c", u"abc"},
        {"escapes", "\\{\\}\\\\", u"{}\\"},
        {"escaped blank", "a\\ b", u"a b"},
        {"bullet", "\\bullet x", u"\u2022x"},
        {"dashes", "\\emdash\\endash", u"\u2014\u2013"},
        {"single quotes", "\\lquote a\\rquote", u"\u2018a\u2019"},
        {"double quotes", "\\ldblquote a\\rdblquote", u"\u201Ca\u201D"},
        {"spaces", "\\emspace\\enspace\\qmspace", u"\u2003\u2002\u2005"},
        {"joiners", "\\zwj\\zwnj", u"\u200D\u200C"},
        {"zero-width break marks", "\\zwbo\\zwnbo", u"\u200B\u2060"},
        {"direction marks", "\\ltrmark\\rtlmark", u"\u200E\u200F"},
        {"byte", "caf\\'e9", u"caf\u00E9"},
        {"blank after a word is no text", "a\\b b\\b0  c", u"ab c"},
        {"formatting and unknown words", "\\pard\\fs24\\unknown7 a", u"a"},
        {"marks that are counted when shown", "a\\chftn\\chpgn\\chdate b", u"ab"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, endsAParagraphAtEachCellAndAddsNothingForARow) {
    constexpr RTFTextCase kCases[] = {
        {"row", "\\trowd\\cellx100\\cellx200\\intbl a\\cell b\\cell\\row c", u"a\nb\nc"},
        {"paragraphs in a cell", "\\intbl a\\par b\\cell\\row", u"a\nb\n"},
        {"cell without a table's definition", "a\\cell b\\cell", u"a\nb\n"},
        {"nested",
         "\\itap2 a\\nestcell{\\nonesttables\\par}{\\*\\nesttableprops\\trowd\\nestrow}\\itap1 b\\cell\\row",
         u"a\nb\n"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, endsWithTheRowTheParagraphOfACellThatHasNoEnd) {
    constexpr RTFTextCase kCases[] = {
        {"last cell", "\\trowd\\intbl a\\cell b\\row c", u"a\nb\nc"},
        {"no cell", "\\trowd\\intbl a\\row\\trowd\\intbl b\\row", u"a\nb\n"},
        {"bytes that wait for more", "{\\fonttbl{\\f1\\fcharset128 A;}}\\f1\\intbl \\'82\\'a0\\row c",
         u"\u3042\nc"},
        {"hidden", "\\intbl a{\\v b\\row}", u"a"},
        {"with nothing in it", "\\trowd\\row a", u"a"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, readsUnicodeAndSkipsWhatStandsForIt) {
    constexpr RTFTextCase kCases[] = {
        {"character", "a\\u8226?b", u"a\u2022b"},
        {"byte", "a\\u8226\\'95b", u"a\u2022b"},
        {"control symbol", "\\u160\\~b", u"\u00A0b"},
        {"control word", "\\u8226\\bullet b", u"\u2022b"},
        {"binary data", "\\u8226\\bin3 {}}b", u"\u2022b"},
        {"escaped brace", "\\u8226\\}b", u"\u2022b"},
        {"first of a run", "\\u8226?\\u8226 ?bc", u"\u2022\u2022bc"},
        {"none", "\\uc0\\u8226 b", u"\u2022b"},
        {"two", "\\uc2\\u8226 xyz", u"\u2022z"},
        {"two bytes", "\\uc2\\u12354\\'82\\'a0b", u"\u3042b"},
        {"across pieces", "\\uc3\\u8226 x\\'41\ny\\'42", u"\u2022B"},
        {"the end of a group ends it", "\\uc5{\\u8226 x}b", u"\u2022b"},
        {"the begin of a group ends it", "\\uc5\\u8226 x{b}", u"\u2022b"},
        {"length is of the group", "\\uc0{\\uc2\\u8226 xy}\\u8226 b", u"\u2022\u2022b"},
        {"length without a number", "\\uc0\\uc\\u8226 xb", u"\u2022b"},
        {"negative length", "\\uc-3\\u8226 xb", u"\u2022xb"},
        {"left out by the writer", "\\u26085\\u26412 xb", u"\u65E5\u672Cb"},
        {"negative", "\\u-3913?", u"\uF0B7"},
        {"modulo", "\\u65601?", u"A"},
        {"pair", "\\u-10179?\\u-8704?", u"\U0001F600"},
        {"pair in unsigned numbers", "\\uc0\\u55357\\u56832", u"\U0001F600"},
        {"no number", "a\\u b", u"ab"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, keepsLoneSurrogatesAndNULUnits) {
    EXPECT_EQ(textOfBody("a\\uc0\\u55357 b"), (std::u16string{u'a', char16_t(0xD83D), u'b'}));
    EXPECT_EQ(textOfBody("a\\uc0\\u56832\\u55357 b"),
              (std::u16string{u'a', char16_t(0xDE00), char16_t(0xD83D), u'b'}));
    EXPECT_EQ(textOfBody("a\\u0?b\\'00c"), u"a\0b\0c"sv);
}

TEST(RTFReader, leavesOutRawNULBytes) { EXPECT_EQ(textOf("{\\rtf1 a\0\0b\\par\0}\0\0"sv), u"ab\n"); }

TEST(RTFReader, takesTheUnicodeVariant) {
    constexpr RTFTextCase kCases[] = {
        {"text", "a{\\upr{b}{\\*\\ud{\\u8226 ?c}}}d", u"a\u2022cd"},
        {"without inner groups", "a{\\upr{b}{\\*\\ud c}}d", u"acd"},
        {"breaks in the other", "{\\upr{b\\par\\cell{\\footnote n}}{\\*\\ud c}}", u"c"},
        {"the other alone", "a{\\upr{b}}d", u"ad"},
        {"no variants around", "a{\\*\\ud c}d", u"ad"},
    };
    expectTexts(kCases);
    EXPECT_EQ(infoOf("{\\info{\\title{\\upr{a}{\\*\\ud{b}}}}}").title, u"b");
    EXPECT_EQ(infoOf("{\\info{\\upr{\\title a}{\\*\\ud{\\title b}}}}").title, u"b");
}

TEST(RTFReader, leavesOutHiddenAndDeletedText) {
    constexpr RTFTextCase kCases[] = {
        {"hidden", "a{\\v b\\par\\tab\\u8226 ?\\'e9}c", u"ac"},
        {"switched off", "a\\v b\\v0 c", u"ac"},
        {"switched on by number", "a\\v1 b\\v0 c", u"ac"},
        {"plain", "a\\v b\\plain c", u"ac"},
        {"deleted", "a{\\deleted b\\par}c", u"ac"},
        {"deleted switched off", "a\\deleted b\\deleted0 c", u"ac"},
        {"moved away", "a{\\mvf b}c", u"ac"},
        {"inserted is kept", "a{\\revised b}c", u"abc"},
        {"both", "a\\v\\deleted b\\v0 c\\deleted0 d", u"ad"},
        {"note of hidden text", "a{\\v{\\footnote\\pard\\plain n}}b", u"ab"},
        {"box of hidden text", "a{\\v{\\shp{\\*\\shpinst{\\shptxt\\plain n}}}}b", u"ab"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, setsTextBoxesBehindTheParagraphThatAnchorsThem) {
    constexpr RTFTextCase kCases[] = {
        {"box", "a{\\shp{\\*\\shpinst\\shpleft1{\\sp{\\sn n}{\\sv v}}{\\shptxt\\pard b\\par}}}c\\par d",
         u"ac\nb\nd"},
        {"two", "a{\\shp{\\*\\shpinst{\\shptxt b\\par}}}{\\shp{\\*\\shpinst{\\shptxt c}}}\\par d",
         u"a\nb\nc\nd"},
        {"form for old readers",
         "a{\\shp{\\*\\shpinst{\\shptxt b}}{\\shprslt{\\*\\do{\\dptxbxtext b}}}}\\par", u"a\nb\n"},
        {"old drawing", "a{\\*\\do\\dobxcolumn\\dptxbx{\\dptxbxtext b\\par}\\dpx1}\\par c", u"a\nb\nc"},
        {"group of shapes",
         "a{\\shpgrp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}{\\shp{\\*\\shpinst{\\shptxt b}}}}}\\par", u"a\nb\n"},
        {"in a cell", "a{\\shp{\\*\\shpinst{\\shptxt b}}}\\cell c\\cell", u"a\nb\nc\n"},
        {"box without text", "a{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}}}b\\par", u"ab\n"},
        {"no paragraph end behind", "a{\\shp{\\*\\shpinst{\\shptxt b}}}", u"a\nb\n"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, setsNotesBehindTheStory) {
    constexpr RTFTextCase kCases[] = {
        {"footnote", "a{\\super\\chftn}{\\footnote\\pard{\\super\\chftn}n}b\\par c", u"ab\nc\nn\n"},
        {"endnote", "a{\\footnote\\ftnalt n}b", u"ab\nn\n"},
        {"optional", "a{\\*\\footnote n}b", u"ab\nn\n"},
        {"order", "a{\\footnote 1\\par 2}b{\\footnote\\ftnalt 3}c", u"abc\n1\n2\n3\n"},
        {"own mark", "a{\\super *{\\footnote{\\super *}n}}b", u"a*b\n*n\n"},
        {"note in a box", "a{\\shp{\\*\\shpinst{\\shptxt b{\\footnote n}}}}\\par c", u"a\nb\nc\nn\n"},
        {"box in a note", "a{\\footnote n{\\shp{\\*\\shpinst{\\shptxt b}}}\\par m}", u"a\nn\nb\nm\n"},
        {"separators", "{\\*\\ftnsep\\chftnsep s}{\\*\\aftnsepc s}a", u"a"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, leavesOutTextThatIsNotTheDocuments) {
    constexpr RTFTextCase kCases[] = {
        {"tables", "{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1;}{\\stylesheet{\\s0 Normal;}}a", u"a"},
        {"optional tables", "{\\*\\listtable{\\list{\\leveltext x;}}}{\\*\\rsidtbl x}{\\*\\xmlnstbl x}a",
         u"a"},
        {"unknown optional", "a{\\*\\unknown b{c}}d", u"ad"},
        {"unknown", "a{\\unknown b}c", u"abc"},
        {"generator", "{\\*\\generator x;}{\\generator x;}a", u"a"},
        {"running heads", "{\\header h\\par}{\\headerl h}{\\headerr h}{\\headerf h}a", u"a"},
        {"running feet", "{\\footer f\\par}{\\footerl f}{\\footerr f}{\\footerf f}a", u"a"},
        {"comment", "a{\\*\\atnid X}{\\*\\atnauthor Y}\\chatn{\\*\\annotation{\\*\\atndate 1}c}b", u"ab"},
        {"comment without its marks", "a{\\atnid X}{\\annotation c}b", u"ab"},
        {"picture", "a{\\pict\\wmetafile8 0123456789ab}b", u"ab"},
        {"picture in two forms", "a{\\*\\shppict{\\pict 00}}{\\nonshppict{\\pict 00}}b", u"ab"},
        {"binary picture", "a{\\pict\\bin5 {{{{{}b", u"ab"},
        {"field's instruction", "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt b}}c", u"bc"},
        {"nested field", "{\\field{\\*\\fldinst IF{\\field{\\*\\fldinst X}{\\fldrslt r}}}{\\fldrslt b}}c",
         u"bc"},
        {"field in a result",
         "{\\field{\\*\\fldinst TOC}{\\fldrslt a{\\field{\\*\\fldinst P}{\\fldrslt 1}}}}", u"a1"},
        {"bookmark", "{\\*\\bkmkstart m}a{\\*\\bkmkend m}{\\bkmkstart m}", u"a"},
        {"index and contents entries", "a{\\xe b}{\\tc c}{\\*\\xe d}e", u"ae"},
        {"background", "{\\*\\background{\\shp{\\*\\shpinst{\\shptxt b}}}}a", u"a"},
        {"equation's property", "{\\*\\moMath{\\mnary{\\mnaryPr{\\mchr S}}{\\me{\\mr x}}}}", u"x"},
        {"object's data", "a{\\object{\\*\\objclass X}{\\*\\objdata 00}{\\result b}}c", u"abc"},
        {"object's picture", "a{\\object{\\*\\objdata 00}{\\result{\\pict 00}}}c", u"ac"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, knowsDestinationsBehindBlanksAndFormatting) {
    constexpr RTFTextCase kCases[] = {
        {"after a line end", "{\n\\fonttbl{\\f0 Arial;}}a", u"a"},
        {"optional after a line end", "{\r\n\\*\\unknown b}a", u"a"},
        {"optional after a blank", "{ \\*\\unknown b}a", u" a"},
        {"after formatting", "a{\\fs20\\pict 00}b", u"ab"},
        {"mark inside a run", "{a\\*\\cs7 b}", u"ab"},
        {"mark before formatting", "{\\*\\cs7 b}", u"b"},
        {"mark before a result", "{\\field{\\*\\fldrslt b}}", u"b"},
        {"in the document's own group", "a\\pict b", u"ab"},
        {"mark in the document's own group", "\\*\\unknown b", u"b"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, setsStoredListMarkersBetweenTabs) {
    constexpr RTFTextCase kCases[] = {
        {"native", "{\\listtext\t\\uc0\\u8226 \t}a\\par", u"\t\u2022\ta\n"},
        {"without leading tab", "{\\listtext\\pard\\plain 1.\\tab}a\\par", u"\t1.\ta\n"},
        {"without tabs", "{\\listtext 1) }a", u"\t1)\ta"},
        {"leading blank", "{\\listtext  1.\\tab}a", u"\t1.\ta"},
        {"old form", "{\\pntext\\f1\\'b7\\tab}a", u"\t\u00B7\ta"},
        {"optional", "{\\*\\pntext 1.\\tab}a", u"\t1.\ta"},
        {"empty", "{\\listtext\\pard\\plain}a", u"a"},
        {"hidden", "{\\v{\\listtext 1.\\tab}}a", u"a"},
        {"in both forms", "{\\listtext 1.\\tab}{\\pntext 1.\\tab}a", u"\t1.\ta"},
        {"each paragraph", "{\\listtext 1.\\tab}a\\par{\\listtext 2.\\tab}b", u"\t1.\ta\n\t2.\tb"},
        {"definition alone makes none", "{\\*\\pn\\pnlvlblt{\\pntxtb *}}\\ls1 a", u"a"},
        {"in a box", "{\\listtext 1.\\tab}a{\\shp{\\*\\shpinst{\\shptxt{\\listtext 2.\\tab}b}}}\\par",
         u"\t1.\ta\n\t2.\tb\n"},
        {"behind a box", "{\\shp{\\*\\shpinst{\\shptxt{\\listtext 2.\\tab}b}}}{\\listtext 1.\\tab}a\\par",
         u"\t1.\ta\n\t2.\tb\n"},
    };
    expectTexts(kCases);
}

TEST(RTFReader, hasAttachmentsInThePackagesTextOnly) {
    struct {
        std::string_view rtf;
        std::u16string_view package, plain;
    } const kCases[] = {
        {"{\\rtf1 a{{\\NeXTGraphic p.tiff \\width40 \\height20\n}\xAC}b}", u"a\uFFFCb", u"ab"},
        {"{\\rtf1 a{{\\NeXTGraphic p.tiff}\\'ac}b}", u"a\uFFFCb", u"ab"},
        {"{\\rtf1\\mac a{{\\NeXTGraphic p.tiff}\xAC"
         "c}b}",
         u"a\uFFFCcb", u"acb"},
        {"{\\rtf1 a{{\\NeXTGraphic p.tiff}}\xAC"
         "b}",
         u"a\uFFFC\u00ACb", u"a\u00ACb"},
        {"{\\rtf1 a{{\\v\\NeXTGraphic p.tiff}\xAC}b}", u"ab", u"ab"},
        {"{\\rtf1 \xAC{\\pict 00}}", u"\u00AC", u"\u00AC"},
    };
    for (const auto& c : kCases) {
        EXPECT_EQ(contentsOf(c.rtf, readRTFDText).text, c.package) << c.rtf;
        EXPECT_EQ(contentsOf(c.rtf, readRTF).text, c.plain) << c.rtf;
    }
}

TEST(RTFReader, beginsAPageBeforeAParagraphThatAsksForOne) {
    constexpr RTFTextCase kCases[] = {
        {"text", "a\\par\\pard\\pagebb b\\par c", u"a\n\fb\n\fc"},
        {"not the first", "\\pard\\pagebb a\\par\\pard b", u"a\nb"},
        {"new formatting", "a\\par\\pard\\pagebb b\\par\\pard c", u"a\n\fb\nc"},
        {"switched off", "a\\par\\pagebb\\pagebb0 b", u"a\nb"},
        {"of a group", "a\\par{\\pagebb b\\par}c", u"a\n\fb\nc"},
        {"empty paragraph", "a\\par\\pagebb\\par", u"a\n\f\n"},
        {"list item", "a\\par\\pagebb{\\listtext\\'b7\\tab}b", u"a\n\f\t\u00B7\tb"},
        {"beside a page break", "a\\par\\page\\pagebb b", u"a\n\fb"},
        {"hidden text", "a\\par\\pagebb{\\v b}", u"a\n"},
        {"not in cells", "a\\par\\intbl\\pagebb b\\cell\\row", u"a\nb\n"},
        {"not in boxes and notes", "a{\\shptxt b\\par\\pagebb c\\par}{\\footnote d\\par\\pagebb e}\\par",
         u"a\nb\nc\nd\ne\n"},
        {"bytes of one character", "{\\fonttbl{\\f1\\fcharset128 A;}}a\\par\\pagebb\\f1\\'82\\'a0\\'82\\'a0",
         u"a\n\f\u3042\u3042"},
    };
    expectTexts(kCases);
}

} // namespace

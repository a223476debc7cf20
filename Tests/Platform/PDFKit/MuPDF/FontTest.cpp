// SPDX-License-Identifier: Apache-2.0
//
// What codes mean in fonts of every kind.
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

namespace {

std::string shown(const std::string& string) { return "BT /F 10 Tf 50 700 Td " + string + " Tj ET"; }

// A table of codes with one line for each range or code.
std::string table(const std::string& codespace, const std::string& lines) {
    return "/CIDInit/ProcSet findresource begin 12 dict begin begincmap 1 begincodespacerange " + codespace +
           " endcodespacerange\n" + lines + "\nendcmap end end";
}

int compositeFont(PDFWriter& writer, const std::string& entries,
                  const std::string& collection = "(Identity)") {
    int descriptor = writer.add("<</Type/FontDescriptor/FontName/None/Flags 4/FontBBox[0 0 1000 1000]"
                                "/ItalicAngle 0/Ascent 800/Descent -200/CapHeight 700/StemV 80>>");
    int descendant =
        writer.add("<</Type/Font/Subtype/CIDFontType2/BaseFont/None/CIDSystemInfo<</Registry(Adobe)"
                   "/Ordering" +
                   collection + "/Supplement 0>>/DW 1000/FontDescriptor " + reference(descriptor) + ">>");
    return writer.add("<</Type/Font/Subtype/Type0/BaseFont/None/DescendantFonts[" + reference(descendant) +
                      "]" + entries + ">>");
}

TEST(Font, SaysWhatItsCodesMean) {
    PDFWriter writer;
    int toUnicode = writer.addStream(table("<00><FF>", "1 beginbfchar <41><0416> endbfchar "
                                                       "1 beginbfrange <42><43><00660066> endbfrange"));
    int font =
        writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier/ToUnicode " + reference(toUnicode) + ">>");
    EXPECT_EQ(textInFont(writer, font, shown("(ABC)")), u"Жfffg");
}

TEST(Font, HasNamesForItsCodes) {
    PDFWriter writer;
    int font = writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier/Encoding<</Differences"
                          "[65/Euro/uni0416/fi/alpha]>>>>");
    EXPECT_EQ(textInFont(writer, font, shown("(ABCD)")), u"€Жfiα");
}

TEST(Font, WithTwoCodesForOneGlyphKeepsThemApart) {
    PDFWriter writer;
    int toUnicode =
        writer.addStream(table("<0000><FFFF>", "2 beginbfchar <0001><0041> <0002><0042> endbfchar"));
    int encoding = writer.addStream(
        table("<0000><FFFF>", "2 begincidchar <0001> 7 <0002> 7 endcidchar"),
        "/Type/CMap/CMapName/Own/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>");
    int font =
        compositeFont(writer, "/Encoding " + reference(encoding) + "/ToUnicode " + reference(toUnicode));
    EXPECT_EQ(textInFont(writer, font, shown("<00010002>")), u"AB");
}

TEST(Font, OfAnEastAsianCollectionNeedsNoTable) {
    PDFWriter writer;
    int font = compositeFont(writer, "/Encoding/UniJIS-UCS2-H", "(Japan1)");
    EXPECT_EQ(textInFont(writer, font, shown("<65E5672C8A9E>")), u"日本語");
}

TEST(Font, MayBeInAnOldEastAsianEncoding) {
    PDFWriter writer;
    int font = compositeFont(writer, "/Encoding/90ms-RKSJ-H", "(Japan1)");
    EXPECT_EQ(textInFont(writer, font, shown("<93FA967B41>")), u"日本A");
}

TEST(Font, MayRunFromTopToBottom) {
    PDFWriter writer;
    int font = compositeFont(writer, "/Encoding/UniJIS-UCS2-V", "(Japan1)");
    writer.addPage("BT /F 10 Tf 300 700 Td <65E5672C> Tj <8A9E> Tj -15 0 Td <7E26> Tj ET",
                   "/Resources<</Font<</F " + reference(font) + ">>>>");
    EXPECT_EQ(textOf(writer.write()), u"日本語\n縦");
}

TEST(Font, WithoutAnyMeaningHasNoText) {
    PDFWriter writer;
    int font = compositeFont(writer, "/Encoding/Identity-H");
    EXPECT_EQ(textInFont(writer, font, shown("<0041004200430044>")), u"");
}

TEST(Font, MayBeMadeOfDrawings) {
    PDFWriter writer;
    int glyph = writer.addStream("1000 0 0 0 1000 1000 d1 0 0 900 900 re f");
    int font = writer.add("<</Type/Font/Subtype/Type3/FontBBox[0 0 1000 1000]/FontMatrix[.001 0 0 .001 0 0]"
                          "/FirstChar 65/LastChar 66/Widths[1000 1000]/Encoding<</Differences[65/A/B]>>"
                          "/CharProcs<</A " +
                          reference(glyph) + "/B " + reference(glyph) + ">>>>");
    EXPECT_EQ(textInFont(writer, font, "BT /F 10 Tf 50 700 Td (AB) Tj 23 0 Td (A) Tj ET"), u"AB A");
}

TEST(Font, SaysHowWideItsGlyphsAre) {
    PDFWriter writer;
    int font =
        writer.add("<</Type/Font/Subtype/TrueType/BaseFont/None/FirstChar 65/LastChar 66/Widths[900 300]"
                   "/Encoding/WinAnsiEncoding>>");
    EXPECT_EQ(textInFont(writer, font, "BT /F 10 Tf 50 700 Td (A) Tj 9 0 Td (B) Tj 6 0 Td (A) Tj ET"),
              u"AB A");
}

TEST(Font, MaySayThatACodeIsALineFeed) {
    PDFWriter writer;
    int toUnicode = writer.addStream(table("<00><FF>", "2 beginbfchar <41><000A> <42><0003> endbfchar"));
    int font = writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier/Encoding/WinAnsiEncoding/ToUnicode " +
                          reference(toUnicode) + ">>");
    EXPECT_EQ(textInFont(writer, font, shown("(xAxBx)")), u"x xBx");
}

TEST(Font, MayBeChosenInAGraphicsState) {
    PDFWriter writer;
    writer.addPage("/G gs BT 50 700 Td (text) Tj ET", "/Resources<</ExtGState<</G<</Font[3 0 R 10]>>>>>>");
    EXPECT_EQ(textOf(writer.write()), u"text");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
//
// Content within content: forms, marked pieces, layers.
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

namespace {

constexpr const char* kForm = "/Type/XObject/Subtype/Form/BBox[0 0 600 800]";
constexpr const char* kFonts = "/Resources<</Font<</F 3 0 R>>>>";

std::string resourcesWith(const std::string& entries) {
    return "/Resources<</Font<</F 3 0 R>>" + entries + ">>";
}

TEST(Form, IsReadWhereItIsDrawn) {
    PDFWriter writer;
    int form =
        writer.addStream(textAt(0, 0, "inside"), std::string(kForm) + kFonts + "/Matrix[1 0 0 1 50 680]");
    writer.addPage(textAt(50, 700, "before") + "/X Do " + textAt(50, 660, "after"),
                   resourcesWith("/XObject<</X " + reference(form) + ">>"));
    EXPECT_EQ(textOf(writer.write()), u"before\ninside\nafter");
}

TEST(Form, UsesThePagesResourcesWhereItHasNone) {
    PDFWriter writer;
    int form = writer.addStream(textAt(50, 700, "inside"), kForm);
    writer.addPage("/X Do", resourcesWith("/XObject<</X " + reference(form) + ">>"));
    EXPECT_EQ(textOf(writer.write()), u"inside");
}

TEST(Form, LeavesTheStateAsItWas) {
    PDFWriter writer;
    int form = writer.addStream("q q 9 0 0 9 0 0 cm /F 99 Tf 50 Tz", std::string(kForm) + kFonts);
    writer.addPage("/F 10 Tf BT 50 700 Td (a) Tj ET /X Do BT 58 700 Td (b) Tj ET",
                   resourcesWith("/XObject<</X " + reference(form) + ">>"));
    EXPECT_EQ(textOf(writer.write()), u"a b");
}

TEST(Form, MayNotTakeStatesFromAround) {
    PDFWriter writer;
    int form = writer.addStream("Q Q Q", kForm);
    writer.addPage("q 2 0 0 2 0 0 cm /X Do " + textAt(25, 350, "a") + "Q " + textAt(62, 700, "b", 20),
                   resourcesWith("/XObject<</X " + reference(form) + ">>"));
    EXPECT_EQ(textOf(writer.write()), u"ab");
}

TEST(Form, EndsItsOwnMarks) {
    PDFWriter writer;
    int layer = writer.add("<</Type/OCG/Name(off)>>");
    writer.catalog = "/OCProperties<</OCGs[" + reference(layer) + "]/D<</OFF[" + reference(layer) + "]>>>>";
    int said = writer.addStream("/Span<</ActualText(said)>>BDC " + textAt(50, 700, "x"),
                                std::string(kForm) + kFonts);
    int hidden = writer.addStream("/OC/Off BDC " + textAt(50, 680, "hidden"),
                                  std::string(kForm) + "/Resources<</Font<</F 3 0 R>>/Properties<</Off " +
                                      reference(layer) + ">>>>");
    writer.addPage("/A Do /B Do " + textAt(50, 660, "after"),
                   resourcesWith("/XObject<</A " + reference(said) + "/B " + reference(hidden) + ">>"));
    EXPECT_EQ(textOf(writer.write()), u"said\nafter");
}

TEST(Form, ThatDrawsItselfIsDrawnOnce) {
    PDFWriter writer;
    int form = int(writer.addStream("", kForm));
    std::string content = textAt(50, 700, "once") + "/X Do";
    writer.replace(form, "<<" + std::string(kForm) + resourcesWith("/XObject<</X " + reference(form) + ">>") +
                             "/Length " + std::to_string(content.size()) + ">>stream\n" + content +
                             "\nendstream");
    writer.addPage("/X Do", resourcesWith("/XObject<</X " + reference(form) + ">>"));
    EXPECT_EQ(textOf(writer.write()), u"once");
}

TEST(MarkedContent, SaysWhatItsGlyphsMean) {
    EXPECT_EQ(textOfPage("/Span<</ActualText(Drucker)>>BDC " + textAt(50, 700, "Druk-") +
                         textAt(50, 680, "ker") + "EMC " + textAt(50, 660, "next")),
              u"Drucker\nnext");
    EXPECT_EQ(
        textOfPage("BT /F 10 Tf 50 700 Td (a) Tj /Span<</ActualText<FEFF20AC>>>BDC (E) Tj EMC (b) Tj ET"),
        u"a€b");
}

TEST(MarkedContent, SaysItInTheResourcesToo) {
    PDFWriter writer;
    writer.addPage("/Span/P BDC " + textAt(50, 700, "x") + "EMC",
                   resourcesWith("/Properties<</P<</ActualText(said)>>>>"));
    EXPECT_EQ(textOf(writer.write()), u"said");
}

TEST(MarkedContent, IsSaidByTheOutermost) {
    EXPECT_EQ(textOfPage("/Span<</ActualText(outer)>>BDC /Span<</ActualText(inner)>>BDC " +
                         textAt(50, 700, "x") + "EMC " + textAt(60, 700, "y") + "EMC"),
              u"outer");
}

TEST(MarkedContent, SaysNothingWithoutTextOrWithoutGlyphs) {
    EXPECT_EQ(textOfPage("/Span<</ActualText()>>BDC " + textAt(50, 700, "x") + "EMC"), u"");
    EXPECT_EQ(textOfPage("/Span<</ActualText(text)>>BDC EMC"), u"");
}

TEST(MarkedContent, EndsWithThePageAtTheLatest) {
    EXPECT_EQ(textOfPage("/Span<</ActualText(open)>>BDC " + textAt(50, 700, "x")), u"open");
}

TEST(MarkedContent, OfOtherKindsChangesNothing) {
    EXPECT_EQ(textOfPage("/P BMC " + textAt(50, 700, "text") + "EMC /P<</MCID 0>>BDC " +
                         textAt(50, 680, "more") + "EMC"),
              u"text\nmore");
}

// A document with two layers, the first of which is off.
std::string layered(const std::string& content) {
    PDFWriter writer;
    int off = writer.add("<</Type/OCG/Name(off)>>"), on = writer.add("<</Type/OCG/Name(on)>>");
    int form =
        writer.addStream(textAt(50, 600, "form"), std::string(kForm) + kFonts + "/OC " + reference(off));
    writer.catalog = "/OCProperties<</OCGs[" + reference(off) + " " + reference(on) + "]/D<</OFF[" +
                     reference(off) + "]/Order[]>>>>";
    writer.addPage(content, resourcesWith("/Properties<</Off " + reference(off) + "/On " + reference(on) +
                                          ">>/XObject<</X " + reference(form) + ">>"));
    return writer.write();
}

TEST(Layer, ThatIsOffHasNoText) {
    EXPECT_EQ(textOf(layered("/OC/Off BDC " + textAt(50, 700, "hidden") + "EMC /OC/On BDC " +
                             textAt(50, 680, "shown") + "EMC")),
              u"shown");
}

TEST(Layer, ThatIsOffHidesWhatIsInIt) {
    EXPECT_EQ(textOf(layered("/OC/Off BDC /OC/On BDC " + textAt(50, 700, "hidden") + "EMC /P BMC " +
                             textAt(50, 690, "too") + "EMC EMC " + textAt(50, 680, "shown"))),
              u"shown");
}

TEST(Layer, ThatIsOffMovesThePenAllTheSame) {
    EXPECT_EQ(textOf(layered("BT /F 10 Tf 50 700 Td (a) Tj /OC/Off BDC (xx) Tj EMC (b) Tj ET")), u"a b");
}

TEST(Layer, ThatIsOffHidesForms) {
    EXPECT_EQ(textOf(layered("/X Do " + textAt(50, 700, "shown"))), u"shown");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
//
// Documents that ask for more than anybody should give them: they end, soon, and with what stood before.
#include "Platform/PDFKit/MuPDF/Context.h"
#include "Platform/PDFKit/MuPDF/WorkLimit.h"
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

#include <chrono>
#include <zlib.h>

namespace {

std::string deflated(const std::string& bytes) {
    uLongf size = compressBound(bytes.size());
    std::string out(size, '\0');
    compress2(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
              bytes.size(), 9);
    out.resize(size);
    return out;
}

std::string repeated(const std::string& text, size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    while (count-- > 0) all += text;
    return all;
}

const std::string kBefore = textAt(50, 700, "before");

// A page whose content, deflated twice, is what stands before and then this.
std::string bomb(const std::string& content) {
    PDFWriter writer;
    int stream = writer.addStream(deflated(deflated(kBefore + content)), "/Filter[/FlateDecode/FlateDecode]");
    int page = writer.addPage("");
    writer.replace(page, "<</Type/Page/Parent 2 0 R/Resources<</Font<</F 3 0 R>>>>/Contents " +
                             reference(stream) + ">>");
    return writer.write();
}

class Limit : public testing::Test {
protected:
    ~Limit() override {
        std::chrono::duration<double> took = std::chrono::steady_clock::now() - start_;
        EXPECT_LT(took.count(), 60) << "seconds, on a busy machine and with sanitizers";
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

TEST_F(Limit, EndsContentThatIsBlank) { EXPECT_EQ(textOf(bomb(std::string(100'000'000, ' '))), u"before"); }

TEST_F(Limit, EndsContentThatOnlyDraws) {
    EXPECT_EQ(textOf(bomb(repeated("0 0 m 9 9 l S ", 5'000'000))), u"before");
}

TEST_F(Limit, EndsContentThatOnlySavesStates) {
    EXPECT_EQ(textOf(bomb(std::string(20'000'000, 'q'))), u"before");
    EXPECT_EQ(textOf(bomb(repeated("q ", 10'000'000))), u"before");
}

TEST_F(Limit, EndsTextThatNeverEnds) {
    std::u16string text = textOf(bomb(repeated("BT /F 9 Tf 50 600 Td (hello world) Tj ET ", 1'000'000)));
    EXPECT_EQ(text.substr(0, 18), u"before\nhello world");
    EXPECT_LT(text.size(), 4'000'000u);
}

TEST_F(Limit, EndsAStringThatNeverEnds) {
    EXPECT_EQ(textOf(bomb("BT /F 9 Tf (" + std::string(30'000'000, 'a') + ") Tj ET")).substr(0, 6),
              u"before");
}

TEST_F(Limit, EndsNestingWithoutEnd) {
    EXPECT_EQ(textOf(bomb(std::string(3'000'000, '['))), u"before");
    EXPECT_EQ(textOf(bomb(repeated("<</A", 1'000'000))), u"before");
}

TEST_F(Limit, EndsFormsThatMultiply) {
    // Each of twenty draws the next one ten times.
    PDFWriter writer;
    const std::string form = "/Type/XObject/Subtype/Form/BBox[0 0 9 9]/Resources<</Font<</F 3 0 R>>";
    int next = writer.addStream(textAt(50, 600, "innermost"), form + ">>");
    for (int i = 0; i < 20; ++i)
        next = writer.addStream(repeated("/X Do ", 10), form + "/XObject<</X " + reference(next) + ">>>>");
    writer.addPage(kBefore + "/X Do",
                   "/Resources<</Font<</F 3 0 R>>/XObject<</X " + reference(next) + ">>>>");
    EXPECT_EQ(textOf(writer.write()), u"before\ninnermost");
}

TEST_F(Limit, EndsFormsThatAreLong) {
    PDFWriter writer;
    int form = writer.addStream(deflated(deflated(std::string(20'000'000, ' '))),
                                "/Type/XObject/Subtype/Form/BBox[0 0 9 9]/Filter[/FlateDecode/FlateDecode]");
    writer.addPage(kBefore + repeated("/X Do ", 10'000),
                   "/Resources<</Font<</F 3 0 R>>/XObject<</X " + reference(form) + ">>>>");
    EXPECT_EQ(textOf(writer.write()), u"before");
}

TEST_F(Limit, EndsFontsThatAreLong) {
    PDFWriter writer;
    int table = writer.addStream(
        deflated(deflated("begincmap 1 begincodespacerange <00><FF> endcodespacerange 100 beginbfrange " +
                          repeated("<00><FF><0041> ", 300'000) + "endbfrange endcmap")),
        "/Filter[/FlateDecode/FlateDecode]");
    std::string fonts, content;
    for (int i = 0; i < 1000; ++i) {
        std::string name = "/F" + std::to_string(i);
        fonts += name + " " +
                 reference(writer.add("<</Type/Font/Subtype/Type1/BaseFont/Courier/ToUnicode " +
                                      reference(table) + "/Number " + std::to_string(i) + ">>"));
        content += "BT " + name + " 10 Tf 50 600 Td (x) Tj ET ";
    }
    writer.addPage(kBefore + content, "/Resources<</Font<</F 3 0 R" + fonts + ">>>>");
    EXPECT_EQ(textOf(writer.write()).substr(0, 6), u"before");
}

TEST_F(Limit, LeavesNothingToPagesPastTheEnd) {
    PDFWriter writer;
    int content =
        writer.addStream(deflated(repeated(textAt(50, 700, "hello"), 20'000)), "/Filter/FlateDecode");
    std::string page =
        "<</Type/Page/Parent 2 0 R/Resources<</Font<</F 3 0 R>>>>/Contents " + reference(content) + ">>";
    std::string kids = repeated(reference(writer.add(page)) + " ", 20'000);
    writer.replace(2, "<</Type/Pages/Count 20000/Kids[" + kids + "]>>");
    OpenedPDF pdf(writer.write());
    for (size_t i = 0; i < 20'000; ++i) pdf.page(i);
    EXPECT_TRUE(pdf->pageAtIndex(19'999));
    EXPECT_EQ(pdf.page(19'999), u"");
}

TEST_F(Limit, OfGlyphsIsInProportionToTheDocument) {
    WorkLimit small(0), large(1'000'000);
    for (WorkLimit* limit : {&small, &large}) EXPECT_TRUE(limit->beginPage());
    size_t taken = 0;
    while (small.takeGlyph()) ++taken;
    EXPECT_LE(taken, 2'000'000u);
    EXPECT_GT(taken, 0u);
    EXPECT_TRUE(small.passed());
    EXPECT_TRUE(large.takeGlyph());
}

TEST_F(Limit, OfMemoryKeepsTheEngineFromMore) {
    Context context(0);
    ASSERT_NE(context.get(), nullptr);
    size_t left = context.memoryLeft();
    EXPECT_EQ(fz_malloc_no_throw(context.get(), left + 1), nullptr);
    void* block = fz_malloc_no_throw(context.get(), left / 2);
    ASSERT_NE(block, nullptr);
    EXPECT_LE(context.memoryLeft(), left - left / 2);
    EXPECT_EQ(fz_realloc_no_throw(context.get(), block, left + left), nullptr);
    fz_free(context.get(), block);
    EXPECT_EQ(context.memoryLeft(), left);
}

} // namespace

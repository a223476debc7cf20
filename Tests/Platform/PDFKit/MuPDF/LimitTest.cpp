// SPDX-License-Identifier: Apache-2.0
//
// Documents that ask for more than anybody should give them: they end, soon, and with what stood before.
#include "Platform/PDFKit/MuPDF/Context.h"
#include "Platform/PDFKit/MuPDF/WorkLimit.h"
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

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

TEST(Limit, EndsContentThatIsBlank) { EXPECT_EQ(readInTime(bomb(std::string(100'000'000, ' '))), u"before"); }

TEST(Limit, EndsContentThatOnlyDraws) {
    EXPECT_EQ(readInTime(bomb(repeated("0 0 m 9 9 l S ", 5'000'000))), u"before");
}

TEST(Limit, EndsContentThatOnlySavesStates) {
    EXPECT_EQ(readInTime(bomb(std::string(20'000'000, 'q'))), u"before");
    EXPECT_EQ(readInTime(bomb(repeated("q ", 10'000'000))), u"before");
}

TEST(Limit, EndsTextThatNeverEnds) {
    std::u16string text = readInTime(bomb(repeated("BT /F 9 Tf 50 600 Td (hello world) Tj ET ", 1'000'000)));
    EXPECT_EQ(text.substr(0, 18), u"before\nhello world");
    EXPECT_LT(text.size(), 4'000'000u);
}

TEST(Limit, EndsAStringThatNeverEnds) {
    EXPECT_EQ(readInTime(bomb("BT /F 9 Tf (" + std::string(30'000'000, 'a') + ") Tj ET")).substr(0, 6),
              u"before");
}

TEST(Limit, EndsNestingWithoutEnd) {
    EXPECT_EQ(readInTime(bomb(std::string(3'000'000, '['))), u"before");
    EXPECT_EQ(readInTime(bomb(repeated("<</A", 1'000'000))), u"before");
}

TEST(Limit, EndsFormsThatMultiply) {
    // Each of twenty draws the next one ten times.
    PDFWriter writer;
    const std::string form = "/Type/XObject/Subtype/Form/BBox[0 0 9 9]/Resources<</Font<</F 3 0 R>>";
    int next = writer.addStream(textAt(50, 600, "innermost"), form + ">>");
    for (int i = 0; i < 20; ++i)
        next = writer.addStream(repeated("/X Do ", 10), form + "/XObject<</X " + reference(next) + ">>>>");
    writer.addPage(kBefore + "/X Do",
                   "/Resources<</Font<</F 3 0 R>>/XObject<</X " + reference(next) + ">>>>");
    EXPECT_EQ(readInTime(writer.write()), u"before\ninnermost");
}

TEST(Limit, EndsFormsThatAreLong) {
    PDFWriter writer;
    int form = writer.addStream(deflated(deflated(std::string(20'000'000, ' '))),
                                "/Type/XObject/Subtype/Form/BBox[0 0 9 9]/Filter[/FlateDecode/FlateDecode]");
    writer.addPage(kBefore + repeated("/X Do ", 10'000),
                   "/Resources<</Font<</F 3 0 R>>/XObject<</X " + reference(form) + ">>>>");
    EXPECT_EQ(readInTime(writer.write()), u"before");
}

TEST(Limit, EndsFontsThatAreLong) {
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
    EXPECT_EQ(readInTime(writer.write()).substr(0, 6), u"before");
}

// Pages that all draw the same content, and have the same object under another key.
std::string pagesWith(const std::string& content, size_t count, const std::string& key = "/Other",
                      const std::string& object = "null") {
    PDFWriter writer;
    int shared = writer.addStream(deflated(content), "/Filter/FlateDecode"), other = writer.add(object);
    std::string page = "<</Type/Page/Parent 2 0 R/Resources<</Font<</F 3 0 R>>>>/Contents " +
                       reference(shared) + key + " " + reference(other) + ">>";
    std::string kids;
    for (size_t i = 0; i < count; ++i) kids += reference(writer.add(page)) + " ";
    writer.replace(2, "<</Type/Pages/Count " + std::to_string(count) + "/Kids[" + kids + "]>>");
    return writer.write();
}

TEST(Limit, LeavesNothingToPagesPastTheEnd) {
    std::u16string text = readInTime(pagesWith(repeated(textAt(50, 700, "hello"), 20'000), 20'000));
    EXPECT_EQ(text.substr(0, 10), u"hellohello");
    EXPECT_LT(text.size(), 5u * 20'000);
}

TEST(Limit, LeavesPagesThatAreManyAndShort) {
    EXPECT_EQ(readInTime(pagesWith(textAt(50, 700, "hello"), 5000)).size(), 5u * 5000);
}

TEST(Limit, EndsAnnotationsThatMultiply) {
    const std::string note = "<</Subtype/Text/Contents 3 0 R>> ";
    std::string bytes = pagesWith("", 2000, "/Annots", "[" + repeated(note, 20'000) + "]");
    EXPECT_EQ(readInTime(bytes), u"");
    size_t font = bytes.find("<</Type/Font"), end = bytes.find("endobj", font);
    bytes.replace(font, end - font, "(" + std::string(50'000, 'x') + ")\n");
    EXPECT_LT(readInTime(bytes).size(), 20 * bytes.size() + 2'000'000);
}

TEST(Limit, EndsReplacementsThatMultiply) {
    PDFWriter writer;
    std::string content = kBefore;
    for (int i = 0; i < 20'000; ++i)
        content += "/Span/P BDC BT /F 9 Tf 5 " + std::to_string(i) + " Td (a) Tj ET EMC ";
    writer.addPage(content, "/Resources<</Font<</F 3 0 R>>/Properties<</P<</ActualText(" +
                                std::string(60'000, 'y') + ")>>>>>>");
    const std::string bytes = writer.write();
    std::u16string text = readInTime(bytes);
    EXPECT_EQ(text.substr(0, 7), u"before\n");
    EXPECT_LT(text.size(), 20 * bytes.size() + 2'000'000);
}

TEST(Limit, EndsInformationThatMultiplies) {
    PDFWriter writer;
    std::string entries, text = reference(writer.add("(" + std::string(100'000, 'x') + ")"));
    for (int i = 0; i < 5'000; ++i) entries += "/Key" + std::to_string(i) + " " + text;
    writer.trailer = "/Info<</Title(kept)" + entries + ">>";
    NSDictionary all = OpenedPDF(writer.write())->documentAttributes();
    EXPECT_EQ(all.get<NSString>(NSString(u"Title")).text(), u"kept");
    EXPECT_LT(all.count(), 100u);
}

TEST(Limit, EndsObjectStreamsThatMultiply) {
    PDFWriter writer;
    const std::string numbers = deflated(repeated("1 0 ", 4'000'000));
    for (int i = 0; i < 20; ++i)
        writer.addStream(numbers, "/Type/ObjStm/N 4000000/First 16000000/Filter/FlateDecode");
    writer.addPage(kBefore);
    std::string bytes = writer.write();
    readInTime(bytes.substr(0, bytes.find("xref"))); // it has to be repaired
}

TEST(Limit, EndsTreesOfPagesWithoutReferences) {
    PDFWriter writer;
    int kids = writer.add("");
    const std::string node = "<</Kids " + reference(kids) + ">>";
    writer.replace(kids, "[" + node + node + "]"); // 2 to the power of its depth
    writer.replace(2, "<</Type/Pages/Count 2/Kids " + reference(kids) + ">>");
    EXPECT_EQ(readInTime(writer.write()), u"");
}

TEST(Limit, EndsPathsThatAreNone) {
    for (const char* drawing : {"W n ", "BX EX ", "0 g "})
        EXPECT_EQ(readInTime(bomb(repeated(drawing, 10'000'000))), u"before") << drawing;
}

TEST(Limit, OfTextIsInProportionToTheDocument) {
    WorkLimit small(0), large(1'000'000);
    for (WorkLimit* limit : {&small, &large}) EXPECT_TRUE(limit->beginPage());
    EXPECT_TRUE(small.takeText(1'000'000));
    EXPECT_FALSE(small.takeText(10'000'000));
    EXPECT_TRUE(small.passed());
    EXPECT_TRUE(small.isOver());
    EXPECT_FALSE(small.takeText(0));
    EXPECT_TRUE(large.takeText(10'000'000));
    EXPECT_FALSE(large.isOver());
}

TEST(Limit, OfTimeHasToBeEarned) {
    WorkLimit limit(10'000'000);
    limit.beginPages();
    double start = secondsSoFar();
    while (limit.beginPage()) {
        while (!limit.passedByClock()) {
        }
    }
    EXPECT_LT(secondsSoFar() - start, 2);
    limit.earnContent(1'000'000);
    EXPECT_TRUE(limit.beginPage());
}

TEST(Limit, OfMemoryKeepsTheEngineFromMore) {
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

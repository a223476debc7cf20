// SPDX-License-Identifier: Apache-2.0
//
// Documents that were damaged on their way: whatever is missing or wrong, reading them comes to an end in
// time.
#include "Tests/Platform/PDFKit/MuPDF/EngineTesting.h"

#include "Tests/Support/TemporaryFolder.h"

#include <random>

namespace {

// A document with something of everything that its reader follows.
std::string richDocument() {
    PDFWriter writer;
    const std::string resources = "/Resources<</Font<</F 3 0 R>>";
    int form = writer.addStream(textAt(50, 600, "form"),
                                "/Type/XObject/Subtype/Form/BBox[0 0 600 800]" + resources + ">>");
    int layer = writer.add("<</Type/OCG/Name(layer)>>");
    std::string inner = resources + "/XObject<</X " + reference(form) + ">>/Properties<</L " +
                        reference(layer) + "/P<</ActualText(said)>>>>>>";
    for (int i = 0; i < 5; ++i)
        writer.addPage(textAt(50, 700, "page") + "/X Do /OC/L BDC /Span/P BDC " + textAt(50, 500, "drawn") +
                           "EMC EMC [(a) -300 (b)] TJ q 1 0 0 1 5 5 cm Q",
                       inner + "/Annots[<</Subtype/Text/T(Ann)/Contents(Note)>>"
                               "<</Subtype/Link/A<</S/URI/URI(page.html)>>>>]");
    writer.catalog = "/URI<</Base(http://example.org/)>>/OCProperties<</OCGs[" + reference(layer) + "]>>";
    writer.trailer = "/Info<</Title(T)/Author(A)/CreationDate(D:20260131)/Own[1 2.5 true null]>>";
    return writer.write();
}

std::vector<std::string> documents() {
    std::vector<std::string> all = {richDocument()};
    for (const char* name : {"linearized", "object-streams", "owner-aes-256-r6", "owner-rc4-40"})
        all.push_back(readFile(std::string(TEST_DATA_FOLDER "/PDF/") + name + ".pdf"));
    return all;
}

TEST(DamagedPDF, IsReadHoweverMuchOfItIsCutOff) {
    for (const std::string& bytes : documents())
        for (size_t percent = 0; percent < 100; ++percent)
            readInTime(bytes.substr(0, bytes.size() * percent / 100));
}

TEST(DamagedPDF, IsReadWhicheverBytesAreWrong) {
    std::minstd_rand random(1);
    for (const std::string& bytes : documents()) {
        for (int round = 0; round < 200; ++round) {
            std::string damaged = bytes;
            for (int i = 0; i <= round % 20; ++i)
                damaged[random() % damaged.size()] ^= char(1 << random() % 8);
            readInTime(damaged);
        }
    }
}

// Digits are offsets, lengths, counts and references: other ones lead astray.
TEST(DamagedPDF, IsReadWhicheverNumbersAreWrong) {
    std::minstd_rand random(2);
    const std::string bytes = richDocument();
    for (int round = 0; round < 400; ++round) {
        std::string damaged = bytes;
        for (int i = 0; i <= round % 20; ++i) {
            size_t at = damaged.find_first_of("0123456789", random() % damaged.size());
            if (at != std::string::npos) damaged[at] = char('0' + random() % 10);
        }
        readInTime(damaged);
    }
}

TEST(DamagedPDF, IsReadWhateverItSaysOfItsSize) {
    const std::string bytes = richDocument();
    for (const char* number :
         {"-1", "0", "2147483647", "4294967296", "99999999999999999999", "1e9", "/Name"}) {
        for (const char* key : {"/Size ", "/Length ", "/Count ", "startxref\n", "xref\n0 "}) {
            std::string damaged = bytes;
            size_t at = damaged.rfind(key) + std::string_view(key).size();
            damaged.replace(at, damaged.find_first_not_of("0123456789", at) - at, number);
            readInTime(damaged);
        }
    }
}

} // namespace

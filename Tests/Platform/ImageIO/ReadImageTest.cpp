// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/ReadImage.h"

#include "Platform/Foundation/UnicodeText.h"
#include "Platform/ImageIO/CGImageProperties.h"
#include "Tests/Support/ImageWriter.h"
#include "Tests/Support/MediaWriter.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

// "City: Berlin", "Keywords: [a, b]", the TIFF fields with "TIFF " in front; "no image".
using Shown = std::vector<std::string>;

Shown read(std::string_view bytes) {
    std::vector<ImageField> fields;
    if (!readImageBytes(bytes, fields)) return {"no image"};
    Shown shown;
    for (const ImageField& field : fields) {
        std::string line = field.dictionary == kCGImagePropertyTIFFDictionary ? "TIFF " : "";
        line += toUTF8(field.key) + ": " + (field.isArray ? "[" : "");
        for (const std::u16string& value : field.values)
            line += (&value == &field.values.front() ? "" : ", ") + toUTF8(value);
        shown.push_back(line + (field.isArray ? "]" : ""));
    }
    return shown;
}

Shown iptc(std::string_view datasets) { return read(jpegFile(datasets)); }

TEST(ReadImage, GivesTheFieldsInTheOrderOfTheirList) {
    EXPECT_EQ(iptc(iptcDataset(2, 120, "caption") + iptcDataset(2, 25, "a") + iptcDataset(2, 25, "b") +
                   iptcDataset(2, 5, "object")),
              (Shown{"ObjectName: object", "Keywords: [a, b]", "Caption/Abstract: caption"}));
}

TEST(ReadImage, KnowsEveryField) {
    const std::pair<unsigned, const char*> datasets[] = {{5, "ObjectName: v"},
                                                         {12, "SubjectReference: [v]"},
                                                         {15, "Category: v"},
                                                         {20, "SupplementalCategory: [v]"},
                                                         {27, "ContentLocationName: [v]"},
                                                         {80, "Byline: [v]"},
                                                         {85, "BylineTitle: [v]"},
                                                         {90, "City: v"},
                                                         {92, "SubLocation: v"},
                                                         {95, "Province/State: v"},
                                                         {25, "Keywords: [v]"},
                                                         {101, "Country/PrimaryLocationName: v"},
                                                         {105, "Headline: v"},
                                                         {110, "Credit: v"},
                                                         {115, "Source: v"},
                                                         {116, "CopyrightNotice: v"},
                                                         {118, "Contact: [v]"},
                                                         {120, "Caption/Abstract: v"}};
    for (const auto& [dataset, expected] : datasets)
        EXPECT_EQ(iptc(iptcDataset(2, dataset, "v")), Shown{expected}) << dataset;
    EXPECT_EQ(iptc(iptcDataset(2, 40, "instructions")), Shown());
}

TEST(ReadImage, TakesTheFirstOfAFieldThatCannotBeRepeated) {
    EXPECT_EQ(iptc(iptcDataset(2, 105, "one") + iptcDataset(2, 105, "two")), Shown{"Headline: one"});
}

TEST(ReadImage, KeepsEmptyFieldsAndBlanks) {
    EXPECT_EQ(iptc(iptcDataset(2, 120, "") + iptcDataset(2, 90, " Berlin ")),
              (Shown{"City:  Berlin ", "Caption/Abstract: "}));
}

TEST(ReadImage, DecodesByTheAnnouncementElseByTheBytes) {
    EXPECT_EQ(iptc(iptcDataset(1, 90, "\x1B%G") + iptcDataset(2, 90, "Z\xC3\xBCrich")),
              Shown{"City: Zürich"});
    EXPECT_EQ(iptc(iptcDataset(2, 90, "Z\xC3\xBCrich") + iptcDataset(2, 120, "Z\xFCrich")),
              (Shown{"City: Zürich", "Caption/Abstract: Zürich"}));
    EXPECT_EQ(iptc(iptcDataset(2, 120, "Photographer\xD5s")), Shown{"Caption/Abstract: Photographer’s"});
}

TEST(ReadImage, GivesTheTextsOfTheFirstDirectory) {
    const std::string tiff = tiffFile({{0x010D, "name"},
                                       {0x010E, "description "},
                                       {0x010F, "maker"},
                                       {0x013B, "J\xFCrgen"},
                                       {0x8298, "me"}});
    const Shown expected = {"TIFF DocumentName: name", "TIFF ImageDescription: description ",
                            "TIFF Artist: Jürgen", "TIFF Copyright: me"};
    EXPECT_EQ(read(tiff), expected);
    EXPECT_EQ(read(jpegFile("", tiff)), expected);
}

TEST(ReadImage, EndsTextsAtANullButForTheTwoPartsOfACopyright) {
    EXPECT_EQ(read(tiffFile({{0x010E, "text\0junk"s}, {0x8298, "photographer\0editor"s}})),
              (Shown{"TIFF ImageDescription: text", "TIFF Copyright: photographer\neditor"}));
    EXPECT_EQ(read(tiffFile({{0x8298, "photographer\0"s}})), Shown{"TIFF Copyright: photographer"});
}

TEST(ReadImage, FallsBackOnXMPFieldByField) {
    const std::string xmp = xmpPacket(
        "<dc:title><rdf:Alt><rdf:li xml:lang=\"de\">Titel</rdf:li><rdf:li "
        "xml:lang=\"x-default\">Title</rdf:li>"
        "</rdf:Alt></dc:title><dc:creator><rdf:Seq><rdf:li>Ann</rdf:li><rdf:li>Bob</rdf:li></rdf:Seq>"
        "</dc:creator><photoshop:City>Z\xC3\xBCrich</photoshop:City>"
        "<tiff:Artist>Somebody</tiff:Artist>");
    EXPECT_EQ(read(jpegFile("", "", xmp)),
              (Shown{"ObjectName: Title", "Byline: [Ann, Bob]", "City: Zürich", "TIFF Artist: Somebody"}));
    EXPECT_EQ(read(jpegFile(iptcDataset(2, 90, "Bern") + iptcDataset(2, 80, "Carl"),
                            tiffFile({{0x013B, "Dora"}}), xmp)),
              (Shown{"ObjectName: Title", "Byline: [Carl]", "City: Bern", "TIFF Artist: Dora"}));
}

TEST(ReadImage, ReadsTheXMPOfPNGAndGIF) {
    const std::string xmp = xmpPacket("<photoshop:Headline>News</photoshop:Headline>");
    EXPECT_EQ(read(pngFile(xmp)), Shown{"Headline: News"});
    EXPECT_EQ(read(gifFile(xmp)), Shown{"Headline: News"});
}

TEST(ReadImage, IsNotForFilmsAndOtherFiles) {
    EXPECT_EQ(read(movieFile("")), Shown{"no image"});
    EXPECT_EQ(read(movieFile("", "isom")), Shown{"no image"});
    EXPECT_EQ(read("RIFF\x10\0\0\0AVI LIST"s), Shown{"no image"});
    EXPECT_EQ(read("plain text, and more of it"), Shown{"no image"});
    EXPECT_EQ(read(""), Shown{"no image"});
}

TEST(ReadImage, OfADamagedFileGivesNothingOrWhatIsThere) {
    const std::string file = jpegFile(iptcDataset(2, 90, "Bern"), tiffFile({{0x010E, "description"}}));
    for (size_t length = 0; length < file.size(); ++length) read(file.substr(0, length));
    std::string lying = iptcDataset(2, 90, "Bern");
    lying.replace(3, 2, bigEndian(0x7FFF, 2));
    EXPECT_EQ(read(jpegFile(lying, tiffFile({{0x010E, "description"}}))),
              Shown{"TIFF ImageDescription: description"});
}

} // namespace

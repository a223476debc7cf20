// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSNumber.h"
#include "Tests/Support/ImageWriter.h"
#include "Tests/Support/MediaWriter.h"

#include <filesystem>

namespace {

using Lines = std::vector<std::string>;

class Image : public EndToEnd {
protected:
    NSDictionary record(std::string_view bytes) const {
        return recordOf(request("ImagePath", write("file", bytes)).output);
    }
};

TEST_F(Image, GivesItsFieldsInTheOrderOfTheirList) {
    EXPECT_EQ(stringIn(record(jpegFile(iptcDataset(2, 120, "c") + iptcDataset(2, 25, "a") +
                                       iptcDataset(2, 25, "b"))),
                       u"string"),
              "a\nb\nc");
}

TEST_F(Image, GivesEveryFieldOfItsListsAndNoOther) {
    std::string iptc;
    // By the numbers of the datasets, the instructions among them.
    for (unsigned dataset :
         {5, 12, 15, 20, 25, 27, 40, 80, 85, 90, 92, 95, 101, 105, 110, 115, 116, 118, 120})
        iptc += iptcDataset(2, dataset, std::to_string(dataset));
    const std::string tiff = tiffFile({{0x010D, "document"},
                                       {0x010E, "description"},
                                       {0x010F, "maker"},
                                       {0x013B, "artist"},
                                       {0x8298, "me"}});
    EXPECT_EQ(stringIn(record(jpegFile(iptc, tiff)), u"string"),
              "5\n12\n15\n20\n27\n80\n85\n90\n92\n95\n25\n101\n105\n110\n115\n116\n118\n120\n"
              "document\ndescription\nartist\nme");
}

TEST_F(Image, TakesHeadlineAndFirstBylineForTitleAndAuthor) {
    const NSDictionary found =
        record(jpegFile(iptcDataset(2, 105, "News") + iptcDataset(2, 80, "Ann") + iptcDataset(2, 80, "Bob")));
    EXPECT_EQ(stringIn(found, u"title"), "News");
    EXPECT_EQ(stringIn(found, u"author"), "Ann");
    EXPECT_EQ(stringIn(found, u"string"), "Ann\nBob\nNews");
    EXPECT_EQ(found.objectForKey(NSString(u"partsCount")), NSNumber::withInt(0));
    EXPECT_EQ(found.get<NSDictionary>(NSString(u"otherAttributes")).count(), 0u) << "not even keywords";
}

TEST_F(Image, TakesNeitherObjectNameNorCreditForThem) {
    const NSDictionary found = record(jpegFile(iptcDataset(2, 5, "object") + iptcDataset(2, 110, "credit")));
    EXPECT_EQ(stringIn(found, u"title"), "");
    EXPECT_EQ(stringIn(found, u"author"), "");
    EXPECT_EQ(stringIn(found, u"string"), "object\ncredit");
}

TEST_F(Image, WithTIFFFieldsOnlyHasNoTitleAndNoAuthor) {
    const NSDictionary found = record(tiffFile({{0x010D, "name"}, {0x010E, "caption"}, {0x013B, "artist"}}));
    EXPECT_EQ(stringIn(found, u"title"), "");
    EXPECT_EQ(stringIn(found, u"author"), "");
    EXPECT_EQ(stringIn(found, u"string"), "name\ncaption\nartist");
}

TEST_F(Image, ListsACaptionTwiceThatStandsInBothDictionaries) {
    EXPECT_EQ(stringIn(record(jpegFile(iptcDataset(2, 120, "caption"), tiffFile({{0x010E, "caption"}}))),
                       u"string"),
              "caption\ncaption");
}

TEST_F(Image, ThatIsNoneIsAnEmptySuccess) {
    for (const std::string& bytes :
         {std::string(), std::string("text"), movieFile(""), std::string(100'000, '\0'), jpegFile(""),
          std::string("\x89PNG\r\n\x1A\n")}) {
        const ToolResult result = request("ImagePath", write("file", bytes));
        const NSDictionary found = recordOf(result.output);
        EXPECT_EQ(found.count(), 6u);
        for (const char16_t* key : {u"string", u"title", u"author", u"url"})
            EXPECT_EQ(stringIn(found, key), "");
        EXPECT_EQ(logLines(result), Lines());
    }
}

TEST_F(Image, ThatIsMissingOrNoFileIsAnError) {
    std::filesystem::create_directory(path("folder"));
    for (const std::string& file : {path("nothing"), path("folder"), std::string("/dev/zero"), std::string()})
        EXPECT_EQ(errorOf(request("ImagePath", file).output), missingFile(file)) << file;
}

TEST_F(Image, MayHaveAnyName) {
    const std::string file = jpegFile(iptcDataset(2, 105, "News"));
    for (const char* name : {"two words", "per%20cent", "\xFF\xFE", "a?b#c", "http:"})
        EXPECT_EQ(stringIn(recordOf(request("ImagePath", write(name, file)).output), u"title"), "News")
            << name;
}

TEST_F(Image, LogsItsPropertiesForDebugging) {
    const std::string file = write(
        "a.jpg", jpegFile(iptcDataset(2, 25, "a") + iptcDataset(2, 25, "b"), tiffFile({{0x013B, "me"}})));
    EXPECT_EQ(logLines(request("ImagePath", file, {{"NSDebugEnabled", "YES"}})),
              Lines{"Properties for " + file +
                    ": {\n    \"{IPTC}\" =     {\n        Keywords =         (\n            a,\n            "
                    "b\n        "
                    ");\n    };\n    \"{TIFF}\" =     {\n        Artist = me;\n    };\n}"});
    EXPECT_EQ(logLines(request("ImagePath", file, {{"NSDebugEnabled", "NO"}})), Lines());
    EXPECT_EQ(logLines(request("ImagePath", write("text", "text"), {{"NSDebugEnabled", "YES"}})), Lines());
}

} // namespace

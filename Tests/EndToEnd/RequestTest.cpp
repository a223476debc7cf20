// SPDX-License-Identifier: Apache-2.0
//
// From the command line to the one extractor that answers.
#include "Tests/EndToEnd/ElfFile.h"
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <filesystem>

namespace {

using Request = EndToEnd;
using Lines = std::vector<std::string>;

TEST_F(Request, WithoutAKeyLogsTheAssertionAndAnswersNothing) {
    for (const Lines& arguments :
         {Lines{}, Lines{"-OtherPath", "/x"}, Lines{"-RTFPath"}, Lines{"RTFPath", "/x"}}) {
        ToolResult result = runTool({.arguments = arguments});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(logLines(result),
                  (Lines{"*** Assertion failure in int main(int, const char **), Source/Tools/texttool:919",
                         "NSInternalInconsistencyException: bad arguments"}));
    }
}

TEST_F(Request, OfTwoKeysIsTheEarlierOne) {
    for (size_t earlier = 0; earlier < std::size(kRequestKeys); ++earlier) {
        for (size_t later = earlier + 1; later < std::size(kRequestKeys); ++later) {
            std::string first = path("first"), second = path("second");
            ToolResult result = runTool({.arguments = {std::string("-") + kRequestKeys[later], second,
                                                       std::string("-") + kRequestKeys[earlier], first}});
            EXPECT_EQ(errorOf(result.output), missingFile(first))
                << kRequestKeys[earlier] << kRequestKeys[later];
        }
    }
}

TEST_F(Request, OfAPDFAndAWordPathIsThePDFs) {
    std::string word = write("word.doc", "text");
    ToolResult result = runTool({.arguments = {"-WordPath", word, "-PDFPath", path("missing.pdf")}});
    EXPECT_EQ(errorOf(result.output), missingFile(path("missing.pdf")));
}

TEST_F(Request, OfAnRTFAndAnHTMLPathReadsTheHTML) {
    std::string rtf = write("a.rtf", "{\\rtf1 rtf}"), html = write("a.html", "<p>html</p>");
    NSDictionary record = recordOf(runTool({.arguments = {"-RTFPath", rtf, "-HTMLPath", html}}).output);
    EXPECT_EQ(attributeIn(record, u"DocumentType"), "NSHTML");
    EXPECT_NE(stringIn(record, u"string").find("html"), std::string::npos);
}

TEST_F(Request, WithAnEmptyPathIsPresent) {
    for (const char* key : kRequestKeys) EXPECT_EQ(errorOf(request(key, "").output), missingFile("")) << key;
}

TEST_F(Request, ForAMissingFileIsError4WithItsPath) {
    for (const char* key : kRequestKeys) {
        ToolResult result = request(key, path("none"));
        EXPECT_EQ(errorOf(result.output), missingFile(path("none"))) << key;
        EXPECT_EQ(stringIn(recordOf(result.output), u"errorString"), "The file “none” doesn’t exist.");
        EXPECT_EQ(result.errors, "") << key;
    }
}

TEST_F(Request, ForAFolderIsAMissingFileWhereOnlyFilesWillDo) {
    std::filesystem::create_directory(path("folder"));
    for (const char* key : {"WebArchivePath", "PDFPath", "QTPath", "ImagePath"}) {
        EXPECT_EQ(errorOf(request(key, path("folder")).output), missingFile(path("folder"))) << key;
    }
    for (const char* key : {"SpotlightPath", "EMLPath"}) {
        EXPECT_FALSE(request(key, path("folder")).output.find("errorData") != std::string::npos) << key;
    }
}

TEST_F(Request, OfAListInsteadOfAPathIsNoRequest) {
    for (const std::string& value : {std::string("(draft)"), std::string("{ a = b; }"), std::string("<61>"),
                                     std::string("<plist><dict><key>a</key><true/></dict></plist>")}) {
        ToolResult result = request("RTFPath", value);
        EXPECT_EQ(result.output, "") << value;
        EXPECT_EQ(logLines(result).back(), "NSInternalInconsistencyException: bad arguments") << value;
    }
}

TEST_F(Request, OfBrokenOrBottomlessListsIsAPath) {
    for (const std::string& value : {std::string("(draft"), std::string(100'000, '('),
                                     std::string(100'000, '{'), std::string("<plist><array>")}) {
        EXPECT_EQ(errorOf(request("RTFPath", value).output), missingFile(value)) << value.substr(0, 20);
    }
}

TEST_F(Request, MayStandInTheStoredPreferences) {
    std::string file = write("stored.rtf", "{\\rtf1 stored}"), other = write("other.rtf", "{\\rtf1 other}");
    write(TEXTTOOL_HOST_DOMAIN ".texttool.plist", "{ RTFPath = \"" + file + "\"; }");
    std::map<std::string, std::string> preferences = {{"XDG_CONFIG_HOME", folder.path()}};
    ToolResult stored = runTool({.environment = preferences});
    EXPECT_EQ(stringIn(recordOf(stored.output), u"string"), "stored");
    ToolResult given = request("RTFPath", other, preferences);
    EXPECT_EQ(stringIn(recordOf(given.output), u"string"), "other");
}

TEST_F(Request, MeansPathsAsTheyAreWritten) {
    for (const char* name : {" blanks ", "(draft) 1.rtf", "line\nfeed", "é漢😀", "a%20b", "\"quoted"}) {
        write(name, "{\\rtf1 read}");
        ToolResult result = runTool({.arguments = {"-RTFPath", name}, .directory = folder.path()});
        EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "read") << name;
    }
}

TEST_F(Request, CannotBeAValueThatStartsWithADash) {
    write("-a.rtf", "{\\rtf1 read}");
    ToolResult result = runTool({.arguments = {"-RTFPath", "-a.rtf"}, .directory = folder.path()});
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(logLines(result).back(), "NSInternalInconsistencyException: bad arguments");
}

TEST_F(Request, GivenTwiceIsTheLast) {
    std::string file = write("a.rtf", "{\\rtf1 last}");
    ToolResult result = runTool({.arguments = {"-RTFPath", path("none"), "word", "-RTFPath", file}});
    EXPECT_EQ(stringIn(recordOf(result.output), u"string"), "last");
}

TEST(Program, CarriesItsInformationList) {
    std::optional<std::string> section = ElfFile(TEXTTOOL_PROGRAM).section("__info_plist");
    ASSERT_TRUE(section);
    NSPropertyListFormat format{};
    NSDictionary list =
        as<NSDictionary>(propertyListWithData(section->substr(0, section->find('\0')), &format, nullptr));
    EXPECT_EQ(format, NSPropertyListXMLFormat_v1_0);
    EXPECT_EQ(list.count(), 4u);
    EXPECT_EQ(stringIn(list, u"CFBundleDevelopmentRegion"), "English");
    EXPECT_EQ(stringIn(list, u"CFBundleInfoDictionaryVersion"), "6.0");
    EXPECT_EQ(stringIn(list, u"CFBundleIdentifier"), TEXTTOOL_HOST_DOMAIN ".texttool");
    EXPECT_EQ(printed(list.objectForKey(NSString(u"LSBackgroundOnly"))), u"1");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
//
// Characters that are lost on weaker roads, from the document or the command line to the record.
#include "Tests/EndToEnd/EndToEnd.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <filesystem>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

class UnusualText : public EndToEnd {
protected:
    NSDictionary recordOfRTF(const std::string& rtf) const {
        return recordOf(request("RTFPath", write("a.rtf", rtf)).output);
    }
};

std::u16string unitsIn(const NSDictionary& record, const char16_t* key) {
    return record.get<NSString>(NSString(key)).text();
}

TEST_F(UnusualText, LoneSurrogatesReachTheRecord) {
    NSDictionary record = recordOfRTF("{\\rtf1\\uc0{\\info{\\title \\u-10179 t}}a\\u-8704 b\\u-10179 }");
    EXPECT_EQ(unitsIn(record, u"string"), (std::u16string{u'a', 0xDE00, u'b', 0xD83D}));
    EXPECT_EQ(unitsIn(record, u"title"), (std::u16string{0xD83D, u't'}));
}

TEST_F(UnusualText, CharactersOutsideTheBasicPlaneReachTheRecord) {
    NSDictionary record =
        recordOfRTF("{\\rtf1\\uc0{\\info{\\title \\u-10179\\u-8704}{\\author \\u-10137\\u-9043}}"
                    "\\u-10179\\u-8704}");
    EXPECT_EQ(unitsIn(record, u"string"), u"😀");
    EXPECT_EQ(unitsIn(record, u"title"), u"😀");
    EXPECT_EQ(unitsIn(record, u"author"), u"\U00029CAD");
}

TEST_F(UnusualText, OfFourBytesReachesTheRecordFromHTML) {
    NSDictionary record = recordOf(
        request("HTMLPath", write("a.html", "<meta charset=utf-8><title>😀</title><p>𝄞&#x1F600;</p>")).output);
    EXPECT_EQ(unitsIn(record, u"title"), u"😀");
    EXPECT_EQ(unitsIn(record, u"string"), u"𝄞😀\n");
}

TEST_F(UnusualText, NulStaysInTheTextAndLeavesTheTitle) {
    NSDictionary record = recordOf(request("WordPath", write("a", std::string("A\0B\0", 4))).output);
    EXPECT_EQ(unitsIn(record, u"string"), std::u16string(u"A\0B\0", 4)) << "a plain text by its second read";
    record = recordOfRTF("{\\rtf1\\uc0{\\info{\\title A\\u0 B\\u0 }{\\author \\u0 W}}text}");
    EXPECT_EQ(unitsIn(record, u"title"), u"AB");
    EXPECT_EQ(unitsIn(record, u"author"), u"W");
}

TEST_F(UnusualText, InAPathNamesTheFile) {
    for (const std::string name :
         {"\xFF\xFE.rtf", "caf\xE9.rtf", "\xED\xA0\xBD.rtf", "日本語😀.rtf", "a\nb.rtf"}) {
        std::string file = write(name, "{\\rtf1 found}");
        EXPECT_EQ(stringIn(recordOf(request("RTFPath", file).output), u"string"), "found") << name;
        request("RTFPath", file, {{"OutPath", path("record " + name)}});
        EXPECT_EQ(stringIn(recordOf(readFile(path("record " + name))), u"string"), "found") << name;
    }
}

TEST_F(UnusualText, InAPathComesBackInItsError) {
    std::string missing = path("none \xFF\xC3.rtf");
    NSError error = errorOf(request("RTFPath", missing).output);
    NSString reported = error.userInfo().get<NSString>(NSString(NSFilePathErrorKey));
    EXPECT_EQ(reported.text().substr(reported.length() - 6),
              (std::u16string{0xDCFF, 0xDCC3, u'.', u'r', u't', u'f'}));
    EXPECT_EQ(fileSystemRepresentation(reported), missing);
}

// Beside the program: the system's temporary folder may lie on a file system without extended attributes.
class Keywords : public EndToEnd {
protected:
    ~Keywords() override { std::filesystem::remove(file); }

    std::string keywordsWith(const std::string& name, std::string_view value) const {
        writeFile(file, "{\\rtf1 x}");
        EXPECT_EQ(setxattr(file.c_str(), name.c_str(), value.data(), value.size(), 0), 0) << file;
        return attributeIn(recordOf(request("RTFPath", file).output), u"SpotlightKeywords");
    }

    std::string file = TEXTTOOL_PROGRAM "-tagged-" + std::to_string(getpid()) + ".rtf";
};

TEST_F(Keywords, OfTheFileAreTheTextOfAnArray) {
    NSData list = dataFromPropertyList(NSArray{NSString(u"one"), NSString(u"two words"), NSString(u"é")},
                                       NSPropertyListBinaryFormat_v1_0, nullptr);
    EXPECT_EQ(keywordsWith("user.com.apple.metadata:kMDItemKeywords", list.bytes()),
              "(\n    one,\n    \"two words\",\n    \"\\U00e9\"\n)");
}

TEST_F(Keywords, OfTheDesktopAreTakenToo) {
    EXPECT_EQ(keywordsWith("user.xdg.tags", "work,2024"), "(\n    work,\n    2024\n)");
}

TEST_F(Keywords, ThatAreDamagedAreNone) {
    EXPECT_EQ(keywordsWith("user.com.apple.metadata:kMDItemKeywords", "bplist00\x01\x02"), "(\n)");
}

TEST_F(UnusualText, NulInAPathIsAnExceptionInTheLog) {
    NSString withNul(std::u16string(u"/tmp\0/x", 7));
    NSDictionary stored{{NSString(u"RTFPath"), withNul}};
    write(TEXTTOOL_HOST_DOMAIN ".texttool.plist",
          dataFromPropertyList(stored, NSPropertyListBinaryFormat_v1_0, nullptr).bytes());
    ToolResult result = runTool({.environment = {{"XDG_CONFIG_HOME", folder.path()}}});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    ASSERT_EQ(logLines(result).size(), 1u);
    EXPECT_EQ(logLines(result)[0].find("NSCharacterConversionException: "), 0u) << logLines(result)[0];
}

} // namespace

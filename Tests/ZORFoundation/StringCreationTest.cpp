// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORBasics.h"

#include <gtest/gtest.h>
#include <regex>
#include <set>

namespace {

using namespace std::string_literals;

NSData data(const std::string& bytes) { return NSData(bytes); }

TEST(StringWithData, ReadsTheEncoding) {
    EXPECT_EQ(zorStringWithData(data("caf\x8E"), NSMacOSRomanStringEncoding).utf8(), "café");
    EXPECT_EQ(zorStringWithData(data("caf\xE9"), NSISOLatin1StringEncoding).utf8(), "café");
    EXPECT_EQ(zorStringWithData(data("\x82\xA0"), NSShiftJISStringEncoding).utf8(), "あ");
    EXPECT_EQ(zorStringWithData(data(""), NSUTF8StringEncoding).text(), u"");
}

TEST(StringWithData, IsNilWhenNotAllOfItIsText) {
    EXPECT_FALSE(zorStringWithData(data("a\xFFz"), NSUTF8StringEncoding));
    EXPECT_FALSE(zorStringWithData(data("\xED\xA0\x80"), NSUTF8StringEncoding));
    EXPECT_FALSE(zorStringWithData(data("\x81"), NSWindowsCP1252StringEncoding));
    EXPECT_FALSE(zorStringWithData(data("\0\0\xD8\0"s), NSUTF32BigEndianStringEncoding));
    EXPECT_FALSE(zorStringWithData(data("a"), 0x80001234));
    EXPECT_FALSE(zorStringWithData(data("a"), NSNoStringEncoding));
    EXPECT_FALSE(zorStringWithData(NSData(), NSUTF8StringEncoding));
}

TEST(StringWithData, DropsTheMarkOfUTF8AndAnOddByteOfUTF16) {
    EXPECT_EQ(zorStringWithData(data("\xEF\xBB\xBF"
                                     "a"),
                                NSUTF8StringEncoding)
                  .text(),
              u"a");
    EXPECT_EQ(zorStringWithData(data("\0a\0"s), NSUnicodeStringEncoding).text(), u"a");
    EXPECT_EQ(zorStringWithData(data("\xFF\xFE"
                                     "a\0"s),
                                NSUnicodeStringEncoding)
                  .text(),
              u"a");
    EXPECT_EQ(zorStringWithData(data("a\0b"s), NSUTF16LittleEndianStringEncoding).text(), u"a");
}

TEST(StringWithData, KeepsNulAndLoneSurrogatesOfUTF16) {
    EXPECT_EQ(zorStringWithData(data("\0\0\xD8\0"s), NSUTF16BigEndianStringEncoding).text(),
              std::u16string({0, 0xD800}));
}

TEST(StringWithData, TellsWhatFailed) {
    NSError error;
    EXPECT_TRUE(zorStringWithData(data("a"), NSUTF8StringEncoding, &error));
    EXPECT_FALSE(error);
    EXPECT_FALSE(zorStringWithData(data("\xFF"), NSUTF8StringEncoding, &error));
    EXPECT_EQ(error, NSError(u"ZORErrorDomain", 500,
                             {{NSString(u"ZORInputObject"), data("\xFF")},
                              {NSString(u"ZORStringEncoding"), NSNumber::withUnsignedInteger(4)}}));
    EXPECT_FALSE(zorStringWithData(data("\xFF"), NSUTF8StringEncoding, nullptr));
}

TEST(StringWithData, OfUTF8IsStrict) {
    EXPECT_EQ(zorStringWithUTF8Data(data("é\0"s)).text(), u"é\0"s);
    EXPECT_FALSE(zorStringWithUTF8Data(data("\xC3")));
}

TEST(FileSystemRepresentation, KeepsEveryByte) {
    EXPECT_EQ(zorStringWithFileSystemRepresentation("/e\xCC\x81").text(), u"/e\u0301");
    EXPECT_EQ(zorStringWithFileSystemRepresentation("/\xFF").text(), std::u16string({u'/', 0xDCFF}));
    EXPECT_EQ(zorStringWithFileSystemRepresentation("").text(), u"");
    EXPECT_FALSE(zorStringWithFileSystemRepresentation(nullptr));
}

TEST(FileSystemRepresentation, OfACountEndsAtAZeroByteToo) {
    EXPECT_EQ(zorStringWithFileSystemRepresentation("abcd", 2).text(), u"ab");
    EXPECT_EQ(zorStringWithFileSystemRepresentation("a\0cd", 4).text(), u"a");
    EXPECT_FALSE(zorStringWithFileSystemRepresentation(nullptr, 0));
}

TEST(StringWithFormat, TakesAListOfArguments) {
    EXPECT_EQ(zorStringWithFormat("%@: %d%%", {NSString(u"é"), 5}).text(), u"é: 5%");
    EXPECT_EQ(zorStringWithFormat("plain", {}).text(), u"plain");
}

TEST(UniqueString, IsAUUIDOfItsOwn) {
    const std::regex form("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}");
    std::set<std::string> seen;
    for (int i = 0; i < 100; ++i) {
        const std::string text = zorUniqueString().utf8();
        EXPECT_TRUE(std::regex_match(text, form)) << text;
        EXPECT_TRUE(seen.insert(text).second) << text;
    }
    const std::string prefixed = zorUniqueString(u"tmp").utf8();
    EXPECT_TRUE(std::regex_match(prefixed.substr(4), form) && prefixed.starts_with("tmp.")) << prefixed;
}

TEST(MIMEEncoding, FollowsTheRegistry) {
    struct {
        const char16_t* name;
        uint32_t encoding;
    } cases[] = {{u"utf-8", 4},
                 {u"UTF-8", 4},
                 {u"us-ascii", 1},
                 {u"ISO-8859-1", 5},
                 {u"iso-8859-2", 9},
                 {u"Windows-1252", 12},
                 {u"utf-16", 10},
                 {u"UTF-16LE", 0x94000100},
                 {u"UTF-32LE", 0x9C000100},
                 {u"Shift_JIS", 8},
                 {u"macintosh", 30},
                 {u"koi8-r", 0x80000A02},
                 {u"no-such-charset", 5},
                 {u"", 5},
                 {u"\u0131so-8859-2", 5}};
    for (const auto& c : cases) {
        EXPECT_EQ(zorStringEncodingForMIMEEncoding(c.name), c.encoding) << NSString(c.name).utf8();
    }
    EXPECT_EQ(zorStringEncodingForMIMEEncoding(nullptr), 5u);
}

TEST(StringWithCharacter, HoldsOneUnit) {
    EXPECT_EQ(zorStringWithCharacter(u'a').text(), u"a");
    EXPECT_EQ(zorStringWithCharacter(0).text(), std::u16string(1, 0));
    EXPECT_EQ(zorStringWithCharacter(0xD800).text(), std::u16string(1, 0xD800));
}

TEST(StringWith32BitCharacter, HoldsOneCodePoint) {
    EXPECT_EQ(zorStringWith32BitCharacter(0x1F600).text(), u"\U0001F600");
    EXPECT_EQ(zorStringWith32BitCharacter(0x10FFFF).text(), u"\U0010FFFF");
    EXPECT_EQ(zorStringWith32BitCharacter(0).text(), std::u16string(1, 0));
    EXPECT_FALSE(zorStringWith32BitCharacter(0xD800));
    EXPECT_FALSE(zorStringWith32BitCharacter(0x110000));
    EXPECT_FALSE(zorStringWith32BitCharacter(UINT32_MAX));
}

TEST(StringWithContentsOfFile, GuessesTheEncoding) {
    TemporaryFolder folder;
    const std::string file = folder.path() + "/text";
    const auto read = [&](const std::string& bytes) {
        writeFile(file, bytes);
        return zorStringWithContentsOfFile(stringWithFileSystemRepresentation(file));
    };
    EXPECT_EQ(read("\xEF\xBB\xBF"
                   "é")
                  .text(),
              u"é");
    EXPECT_EQ(read("é").text(), u"é");
    EXPECT_EQ(read("\xFF\xFE\xE9\0"s).text(), u"é");
    EXPECT_EQ(read("\xFE\xFF\0\xE9"s).text(), u"é");
    EXPECT_EQ(read("caf\x8E").text(), u"café");
    EXPECT_EQ(read("").text(), u"");
    EXPECT_TRUE(read(""));
    EXPECT_FALSE(zorStringWithContentsOfFile(u"/nonexistent"));
    EXPECT_FALSE(zorStringWithContentsOfFile(stringWithFileSystemRepresentation(folder.path())));
    EXPECT_FALSE(zorStringWithContentsOfFile(nullptr));
}

} // namespace

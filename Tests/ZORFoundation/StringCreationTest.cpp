// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNumber.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORBasics.h"

#include <gtest/gtest.h>

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

} // namespace

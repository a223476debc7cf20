// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/EncodingNumbers.h"
#include "Platform/Foundation/NSStringEncoding.h"

#include <gtest/gtest.h>
#include <optional>

namespace {

using namespace std::string_literals;

std::optional<std::string> encoded(std::u16string_view text, NSStringEncoding encoding) {
    std::string bytes;
    if (!appendEncoded(bytes, text, encoding)) return std::nullopt;
    return bytes;
}

TEST(Encoder, WritesUnicodeForms) {
    const std::u16string text = u"aé\U0001F600\0"s;
    EXPECT_EQ(encoded(text, NSUTF8StringEncoding), "aé\xF0\x9F\x98\x80\0"s);
    EXPECT_EQ(encoded(text, NSUTF16BigEndianStringEncoding), "\0a\0\xE9\xD8\x3D\xDE\0\0\0"s);
    EXPECT_EQ(encoded(text, NSUTF16LittleEndianStringEncoding), "a\0\xE9\0\x3D\xD8\0\xDE\0\0"s);
    EXPECT_EQ(encoded(u"a", NSUnicodeStringEncoding), "\xFF\xFE"
                                                      "a\0"s);
    EXPECT_EQ(encoded(u"\U0001F600", NSUTF32BigEndianStringEncoding), "\0\x01\xF6\0"s);
    EXPECT_EQ(encoded(u"\U0001F600", NSUTF32LittleEndianStringEncoding), "\0\xF6\x01\0"s);
    EXPECT_EQ(encoded(u"a", NSUTF32StringEncoding), "\xFF\xFE\0\0a\0\0\0"s);
}

TEST(Encoder, RefusesLoneSurrogatesButInUTF16) {
    for (const std::u16string& lone : {u"a\xD800"s, u"\xDC00z"s, u"\xDC00\xD800"s, u"\xD800\xD800\xDC00"s}) {
        EXPECT_FALSE(encoded(lone, NSUTF8StringEncoding));
        EXPECT_FALSE(encoded(lone, NSUTF32LittleEndianStringEncoding));
        EXPECT_FALSE(encoded(lone, NSISOLatin1StringEncoding));
        EXPECT_FALSE(encoded(lone, NSShiftJISStringEncoding));
        EXPECT_TRUE(encoded(lone, NSUTF16LittleEndianStringEncoding));
    }
}

TEST(Encoder, WritesOneByteEncodings) {
    EXPECT_EQ(encoded(u"caf\u00E9\u2122", NSMacOSRomanStringEncoding), "caf\x8E\xAA");
    EXPECT_EQ(encoded(u"\u20AC\u2019", NSWindowsCP1252StringEncoding), "\x80\x92");
    EXPECT_EQ(encoded(u"\u00FF\u0080", NSISOLatin1StringEncoding), "\xFF\x80");
    EXPECT_EQ(encoded(u"\u041F", kEncodingKOI8R), "\xF0");
    EXPECT_EQ(encoded(u"\u03B1", NSSymbolStringEncoding), "a");
}

TEST(Encoder, RefusesWhatTheEncodingLacks) {
    EXPECT_FALSE(encoded(u"\u0080", NSASCIIStringEncoding));
    EXPECT_FALSE(encoded(u"\u20AC", NSISOLatin1StringEncoding));
    EXPECT_FALSE(encoded(u"\u0081", NSWindowsCP1252StringEncoding));
    EXPECT_FALSE(encoded(u"\uFFFD", NSWindowsCP1253StringEncoding));
    EXPECT_FALSE(encoded(u"a", NSSymbolStringEncoding));
    EXPECT_FALSE(encoded(u"\u0E01", NSShiftJISStringEncoding));
    EXPECT_FALSE(encoded(u"a", NSNoStringEncoding));
    EXPECT_FALSE(encoded(u"a", 0x80001234));
    EXPECT_FALSE(encoded(u"a", kEncodingHZ));
}

TEST(Encoder, WritesEastAsianEncodings) {
    EXPECT_EQ(encoded(u"aあ", NSShiftJISStringEncoding), "a\x82\xA0");
    EXPECT_EQ(encoded(u"あ", NSJapaneseEUCStringEncoding), "\xA4\xA2");
    EXPECT_EQ(encoded(u"aあb", NSISO2022JPStringEncoding), "a\x1B$B$\"\x1B(Bb");
    EXPECT_EQ(encoded(u"あ", NSISO2022JPStringEncoding), "\x1B$B$\"\x1B(B"); // back to ASCII at the end
    EXPECT_EQ(encoded(u"中", kEncodingGB18030), "\xD6\xD0");
    EXPECT_EQ(encoded(u"中", kEncodingBig5), "\xA4\xA4");
    EXPECT_EQ(encoded(u"가", kEncodingEUCKR), "\xB0\xA1");
    EXPECT_EQ(encoded(u"\U0001F600", kEncodingGB18030), "\x94\x39\xFC\x36");
    EXPECT_FALSE(encoded(u"\U0001F600", kEncodingGBK));
}

TEST(Encoder, WritesLongTexts) {
    const std::u16string text(10'000, u'中');
    const auto bytes = encoded(text, kEncodingGBK);
    ASSERT_TRUE(bytes);
    std::u16string again;
    EXPECT_TRUE(appendDecoded(again, *bytes, kEncodingGBK));
    EXPECT_EQ(again, text);
}

TEST(Encoder, WritesBackEveryByteThatTheDecoderReads) {
    for (NSStringEncoding encoding : {NSISOLatin2StringEncoding, NSMacOSRomanStringEncoding,
                                      NSWindowsCP1251StringEncoding, NSWindowsCP1254StringEncoding}) {
        for (unsigned byte = 0; byte < 0x100; ++byte) {
            const std::string bytes(1, char(byte));
            std::u16string text;
            if (!appendDecoded(text, bytes, encoding)) continue;
            EXPECT_EQ(encoded(text, encoding), bytes) << encoding << ", " << byte;
        }
    }
}

TEST(Encoding, IsAvailableOrNot) {
    for (NSStringEncoding encoding : {1u, 4u, 5u, 10u, 30u, 8u, 21u, 0x9C000100u, 0x80000632u, 0x80000A05u}) {
        EXPECT_TRUE(isStringEncodingAvailable(encoding)) << encoding;
    }
    for (NSStringEncoding encoding : {0u, 7u, 31u, 0x80001234u, UINT32_MAX}) {
        EXPECT_FALSE(isStringEncodingAvailable(encoding)) << encoding;
    }
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/EncodingNumbers.h"
#include "Platform/Foundation/UnicodeText.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace std::string_literals;

namespace {

std::u16string decoded(std::string_view bytes, NSStringEncoding encoding) {
    std::u16string text;
    appendDecoded(text, bytes, encoding);
    return text;
}

// Bytes of the multi-byte encodings with their text; each text ends in an ASCII character.
const struct {
    NSStringEncoding encoding;
    std::string bytes;
    std::u16string text;
} kTexts[] = {
    {NSShiftJISStringEncoding, "\x93\xFA\x96{\x81`\xB1\x87\x40~\\", u"日本～ｱ①~\\"},
    {kEncodingDOS932, "\x93\xFA.", u"日."},
    {kEncodingMacJapanese, "\x93\xFA.", u"日."},
    {NSJapaneseEUCStringEncoding, "\xC6\xFC\x8E\xB1\x8F\xB0\xA1\xAD\xA1~\\", u"日ｱ丂①~\\"},
    {NSISO2022JPStringEncoding, "a\x1B$BF|K\\-!\x1B(J\\\x1B(I1\x1B$(D0!\x1B(B\n", u"a日本①\\ｱ丂\n"},
    {kEncodingDOS936, "\xD6\xD0\x81\x40\x80~\\", u"中丂€~\\"},
    {kEncodingGBK, "\xD6\xD0.", u"中."},
    {kEncodingEUCCN, "\xD6\xD0.", u"中."},
    {kEncodingMacChineseSimplified, "\xD6\xD0.", u"中."},
    {kEncodingGB18030, "\xD6\xD0\x81\x30\x81\x30\x94\x39\xDA\x33.", u"中\u0080\U0001F4A9."},
    {kEncodingHZ, "~~a~{VP9z~}~\nb", u"~a中国b"},
    {kEncodingDOS949, "\xB0\xA1\x81\x41~\\", u"가갂~\\"},
    {kEncodingEUCKR, "\xB0\xA1.", u"가."},
    {kEncodingMacKorean, "\xB0\xA1.", u"가."},
    {kEncodingISO2022KR, "\x1B$)C\x0E\x30!\x0F\\", u"가\\"},
    {kEncodingJohab, "\x88\x61\x88\x62~\\", u"가각~\\"},
    {kEncodingDOS950, "\xA4\xA4\xA3\xE1~\\", u"中€~\\"},
    {kEncodingMacChineseTraditional, "\xA4\xA4.", u"中."},
    {kEncodingBig5, "\xA4\xA4\x88\x62.", u"中\u00CA\u0304."},
    {kEncodingBig5HKSCS, "\x87\x40.", u"䏰."},
};

} // namespace

TEST(EastAsianEncodings, TextsAreDecoded) {
    for (const auto& each : kTexts) {
        SCOPED_TRACE(each.encoding);
        std::u16string text;
        EXPECT_TRUE(appendDecoded(text, each.bytes, each.encoding));
        EXPECT_EQ(text, each.text);

        // Longer than the buffers on the way.
        std::string bytes;
        std::u16string expected;
        for (int i = 0; i < 1500; ++i) {
            bytes += each.bytes;
            expected += each.text;
        }
        EXPECT_EQ(decoded(bytes, each.encoding), expected);
    }
}

TEST(EastAsianEncodings, ASCIIIsTheSameInAll) {
    std::string ascii;
    for (char byte = 1; byte < 127; ++byte) ascii.push_back(byte);
    for (const auto& each : kTexts) {
        SCOPED_TRACE(each.encoding);
        std::string plain = ascii;
        if (each.encoding == kEncodingHZ) std::erase(plain, '~');
        if (each.encoding == NSISO2022JPStringEncoding) std::erase(plain, '\x1B');
        if (each.encoding == kEncodingISO2022KR) {
            std::erase_if(plain,
                          [](char byte) { return byte == '\x1B' || byte == '\x0E' || byte == '\x0F'; });
        }
        EXPECT_EQ(decoded(plain, each.encoding), fromUTF8(plain));
        EXPECT_EQ(decoded(each.bytes + plain, each.encoding), each.text + fromUTF8(plain));
    }
}

TEST(EastAsianEncodings, TextsCutAnywhereEndInOneReplacement) {
    for (const auto& each : kTexts) {
        SCOPED_TRACE(each.encoding);
        const bool hasEscapes = each.bytes.find('\x1B') != std::string::npos || each.encoding == kEncodingHZ;
        for (size_t cut = 0; cut < each.bytes.size(); ++cut) {
            std::u16string text;
            const bool whole = appendDecoded(text, each.bytes.substr(0, cut), each.encoding);
            EXPECT_EQ(text.find(kReplacementCharacter) == std::u16string::npos, whole);
            if (hasEscapes) continue; // what is left of an escape is text of its own
            if (!whole) {
                ASSERT_EQ(text.back(), kReplacementCharacter);
                text.pop_back();
            }
            EXPECT_EQ(text, each.text.substr(0, text.size()));
        }
    }
}

TEST(EastAsianEncodings, MalformedCharactersLeaveTheRestReadable) {
    const struct {
        NSStringEncoding encoding;
        std::string bytes;
        std::u16string text;
    } cases[] = {
        {NSShiftJISStringEncoding, "\x93\xFA\x93\n\x93\xFA", u"日\uFFFD\n日"},
        {NSShiftJISStringEncoding, "\xFF\x80x", u"\uFFFD\uFFFDx"},
        {NSShiftJISStringEncoding, "\x93\xFD<b>", u"\uFFFD<b>"},
        {NSJapaneseEUCStringEncoding, "\xC6\xFC\xC6<\xC6\xFC", u"日\uFFFD<日"},
        {NSJapaneseEUCStringEncoding, "\x8F\xA1\xA1\xC6\xFC", u"\uFFFD日"},
        {kEncodingGB18030, "\xFF\xD6\xD0\x81<\xD6\xD0", u"\uFFFD中\uFFFD<中"},
        {kEncodingEUCKR, "\xB0\xB0\xFF\xB0\xA1", u"\uAC19\uFFFD가"},
        {kEncodingJohab, "\xFF\x88\x61", u"\uFFFD가"},
        {kEncodingDOS950, "\xA4<\xFF\xA4\xA4", u"\uFFFD<\uFFFD中"},
        {kEncodingBig5, "\xFF\xA4\xA4", u"\uFFFD中"},
        {NSISO2022JPStringEncoding, "\x1B$BF\x1B(Bx\xFF\x1B[y", u"\uFFFDx\uFFFD\uFFFD[y"},
        {NSISO2022JPStringEncoding, "\x1B(I1~1", u"ｱ\uFFFDｱ"},
        {NSISO2022JPStringEncoding, "\x1B$BF", u"\uFFFD"},
        {kEncodingISO2022KR, "\x1B$)C\x0E\x30\nx\x1B", u"\uFFFD\n\uFFFD\uFFFD"},
        {kEncodingHZ, "~{VP9\n~}~x~", u"中\uFFFD\n\uFFFDx\uFFFD"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.bytes));
        std::u16string text;
        EXPECT_FALSE(appendDecoded(text, each.bytes, each.encoding));
        EXPECT_EQ(text, each.text);
    }
}

TEST(EastAsianEncodings, WithoutAConverterASCIIRemains) {
    // A process without file descriptors can load no converter.
    auto decodeWithoutFiles = [] {
        const rlimit none = {0, 0};
        setrlimit(RLIMIT_NOFILE, &none);
        std::u16string text;
        const bool whole = appendDecoded(text, "a\x93\xFA\\b", NSShiftJISStringEncoding);
        _exit(!whole && text == u"a\uFFFD\uFFFD\\b" ? 0 : 1);
    };
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(decodeWithoutFiles(), testing::ExitedWithCode(0), "");
}

TEST(EastAsianEncodings, HaveNoUpperHalf) {
    for (const auto& each : kTexts) EXPECT_EQ(upperHalf(each.encoding), nullptr);
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/UnicodeText.h"

#include <cstdint>
#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

constexpr Malformed kRules[] = {Malformed::replaced, Malformed::byteEscaped, Malformed::surrogatesKept};

// Encodes a scalar value by arithmetic of its own.
std::string encoded(uint32_t c) {
    if (c < 0x80) return {char(c)};
    if (c < 0x800) return {char(0xC0 + c / 64), char(0x80 + c % 64)};
    if (c < 0x10000) return {char(0xE0 + c / 4096), char(0x80 + c / 64 % 64), char(0x80 + c % 64)};
    return {char(0xF0 + c / 262144), char(0x80 + c / 4096 % 64), char(0x80 + c / 64 % 64),
            char(0x80 + c % 64)};
}

std::u16string units(char32_t c) {
    std::u16string text;
    appendCodePoint(text, c);
    return text;
}

} // namespace

TEST(UnicodeText, CodePointsBecomeOneUnitOrTwo) {
    EXPECT_EQ(units(0), u"\0"s);
    EXPECT_EQ(units(0xFFFF), u"\uFFFF");
    EXPECT_EQ(units(0x10000), u"\U00010000");
    EXPECT_EQ(units(0x10FFFF), u"\U0010FFFF");
    EXPECT_EQ(units(0xD800), std::u16string(1, char16_t(0xD800)));
    EXPECT_EQ(units(0x110000), u"\uFFFD");
    EXPECT_EQ(units(0xFFFFFFFF), u"\uFFFD");
}

TEST(UnicodeText, EveryScalarValueGoesThereAndBack) {
    std::string bytes;
    std::u16string text;
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (isSurrogate(c)) continue;
        bytes += encoded(c);
        appendCodePoint(text, c);
    }
    EXPECT_TRUE(isUTF8(bytes));
    EXPECT_EQ(toUTF8(text), bytes);
    for (Malformed rule : kRules) {
        std::u16string decoded;
        EXPECT_TRUE(appendUTF8(decoded, bytes, rule));
        EXPECT_EQ(decoded, text);
    }
}

TEST(UnicodeText, NonASCIIIsFoundAtEveryPlaceOfABlock) {
    for (size_t length = 0; length < 70; ++length) {
        for (size_t place = 0; place <= length; ++place) {
            std::string bytes(length, 'a');
            std::u16string text(length, u'a');
            bytes.insert(place, "\xC3\xA9");
            text.insert(place, 1, u'\u00E9');
            EXPECT_EQ(fromUTF8(bytes), text);
            EXPECT_EQ(toUTF8(text), bytes);
            EXPECT_TRUE(isUTF8(bytes));
            bytes[place] = '\x80';
            EXPECT_FALSE(isUTF8(bytes));
        }
    }
}

TEST(UnicodeText, LongTextsOfMixedWidthsStayWhole) {
    for (size_t start = 0; start < 20; ++start) {
        std::string bytes(start, 'x');
        std::u16string text(start, u'x');
        for (int i = 0; i < 3000; ++i) {
            bytes += "\xF0\x9F\x98\x80\xE2\x82\xAC-";
            text += u"\U0001F600\u20AC-";
        }
        EXPECT_EQ(fromUTF8(bytes), text);
        EXPECT_EQ(toUTF8(text), bytes);
    }
}

TEST(UnicodeText, AppendingKeepsWhatIsThere) {
    std::u16string text = u"before ";
    EXPECT_TRUE(appendUTF8(text, ""));
    EXPECT_TRUE(appendUTF8(text, "after"));
    EXPECT_EQ(text, u"before after");
}

TEST(UnicodeText, ByteOrderMarkAndNulAreText) {
    EXPECT_EQ(fromUTF8("\xEF\xBB\xBF"
                       "a\0b"s),
              u"\uFEFFa\0b"s);
}

TEST(UnicodeText, MaximalIllFormedPartsBecomeOneReplacementEach) {
    const struct {
        std::string bytes;
        std::u16string text;
    } cases[] = {
        {"\x80", u"\uFFFD"},
        {"\xFF\xFE", u"\uFFFD\uFFFD"},
        {"\xC0\xAF", u"\uFFFD\uFFFD"},
        {"\xC1\xBF", u"\uFFFD\uFFFD"},
        {"\xC3", u"\uFFFD"},
        {"\xC3(", u"\uFFFD("},
        {"\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xE2\x82", u"\uFFFD"},
        {"\xE2\x82z", u"\uFFFDz"},
        {"\xE2\x28\xA1", u"\uFFFD(\uFFFD"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xED\xBF\xBF\x41", u"\uFFFD\uFFFD\uFFFDA"},
        {"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x9F\x98", u"\uFFFD"},
        {"\xF0\x9F\x98\xF0\x9F\x98\x80", u"\uFFFD\U0001F600"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xF5\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", u"\uFFFD\uFFFD\uFFFD\uFFFDA"},
        {"\x61\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64", u"a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.bytes));
        std::u16string text;
        EXPECT_FALSE(appendUTF8(text, each.bytes));
        EXPECT_EQ(text, each.text);
        EXPECT_FALSE(isUTF8(each.bytes));
    }
}

TEST(UnicodeText, TolerantReadersTakeSurrogatesBack) {
    const std::u16string lone = {char16_t(0xD800), u'-', char16_t(0xDFFF)};
    std::u16string text;
    EXPECT_TRUE(appendUTF8(text, "\xED\xA0\x80-\xED\xBF\xBF", Malformed::surrogatesKept));
    EXPECT_EQ(text, lone);
    EXPECT_EQ(toUTF8(lone, LoneSurrogates::threeBytes), "\xED\xA0\x80-\xED\xBF\xBF");

    text.clear();
    EXPECT_FALSE(appendUTF8(text, "\xED\xA0-\xFF", Malformed::surrogatesKept));
    EXPECT_EQ(text, u"\uFFFD-\uFFFD");
}

TEST(UnicodeText, LoneSurrogatesFollowTheirRule) {
    const std::u16string text = {char16_t(0xDC80),
                                 u'a',
                                 char16_t(0xDCFF),
                                 char16_t(0xD83D),
                                 u'b',
                                 char16_t(0xDC7F),
                                 char16_t(0xD83D),
                                 char16_t(0xD83D),
                                 char16_t(0xDE00)};
    EXPECT_EQ(toUTF8(text), "\uFFFDa\uFFFD\uFFFDb\uFFFD\uFFFD\U0001F600");
    EXPECT_EQ(toUTF8(text, LoneSurrogates::threeBytes), "\xED\xB2\x80"
                                                        "a\xED\xB3\xBF\xED\xA0\xBD"
                                                        "b\xED\xB1\xBF\xED\xA0\xBD\U0001F600");
    EXPECT_EQ(toUTF8(text, LoneSurrogates::byteUnescaped), "\x80"
                                                           "a\xFF\xED\xA0\xBD"
                                                           "b\xED\xB1\xBF\xED\xA0\xBD\U0001F600");
    EXPECT_EQ(toUTF8({text.data() + 3, 1}), "\uFFFD");
}

TEST(UnicodeText, EscapedBytesComeBackUnchanged) {
    auto expectRoundTrip = [](const std::string& bytes) {
        const std::u16string text = fromUTF8(bytes, Malformed::byteEscaped);
        ASSERT_EQ(toUTF8(text, LoneSurrogates::byteUnescaped), bytes) << testing::PrintToString(bytes);
    };
    for (unsigned a = 0; a < 256; ++a) {
        for (unsigned b = 0; b < 256; ++b) expectRoundTrip({char(a), char(b)});
    }
    // Sequences of the bytes where the rules change, in every order.
    const std::string edges = "A\x7F\x80\x8F\x90\x9F\xA0\xBF\xC1\xC2\xE0\xE2\xED\xEF\xF0\xF3\xF4\xF5";
    for (char a : edges) {
        for (char b : edges) {
            for (char c : edges) {
                for (char d : edges) expectRoundTrip({a, b, c, d, 'z'});
            }
        }
    }
}

TEST(UnicodeText, ValidityIsWhatTheDecoderReports) {
    const std::string edges = "A\x80\x8F\x90\x9F\xA0\xBF\xC1\xC2\xE0\xE2\xED\xEF\xF0\xF3\xF4\xF5";
    for (char a : edges) {
        for (char b : edges) {
            for (char c : edges) {
                const std::string bytes = {a, b, c, '\x80'};
                std::u16string text;
                const bool valid = isUTF8(bytes);
                EXPECT_EQ(appendUTF8(text, bytes), valid);
                EXPECT_EQ(text.find(kReplacementCharacter) == std::u16string::npos, valid);
            }
        }
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"

#include <gtest/gtest.h>

namespace {

template <class Test>
std::string bytesThat(Test test) {
    std::string found;
    for (int byte = 0; byte < 256; ++byte) {
        if (test(char(byte))) found += char(byte);
    }
    return found;
}

TEST(ASCII, KindsOfCharactersHoldNothingBeyondASCII) {
    EXPECT_EQ(bytesThat([](char c) { return isDigit(c); }), "0123456789");
    EXPECT_EQ(bytesThat([](char c) { return isLetter(c); }),
              "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(bytesThat([](char c) { return isSpace(c); }), "\t\n\v\f\r ");
    EXPECT_EQ(bytesThat([](char c) { return isXMLSpace(c); }), "\t\n\r ");
    EXPECT_EQ(bytesThat([](char c) { return isASCII(c); }).size(), 128u);
    EXPECT_FALSE(isDigit(u'\u0660')); // Arabic-Indic zero
    EXPECT_FALSE(isLetter(u'é'));
    EXPECT_FALSE(isLetter(u'\u212A')); // Kelvin sign
    EXPECT_FALSE(isSpace(u'\u00A0'));
}

TEST(ASCII, HexadecimalDigitsHaveValuesInBothCases) {
    for (int value = 0; value < 16; ++value) {
        EXPECT_EQ(hexDigit("0123456789abcdef"[value]), value);
        EXPECT_EQ(hexDigit(u"0123456789ABCDEF"[value]), value);
    }
    EXPECT_EQ(bytesThat([](char c) { return hexDigit(c) >= 0; }), "0123456789ABCDEFabcdef");
    EXPECT_EQ(hexDigit(u'\uFF11'), -1); // full-width one
}

TEST(ASCII, LoweringKeepsWhatHasNoCase) {
    EXPECT_EQ(lowered("AZaz@[`{09\xC3\x89"), "azaz@[`{09\xC3\x89");
    EXPECT_EQ(lowered(u"ÉZ\u212A\xD800"), u"Éz\u212A\xD800");
}

TEST(ASCII, ComparesWithoutRegardToCase) {
    EXPECT_TRUE(equalIgnoringCase("Content-Type", "content-TYPE"));
    EXPECT_TRUE(equalIgnoringCase(u"TRUE", u"true"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
    EXPECT_FALSE(equalIgnoringCase("meta", "metas"));
    EXPECT_FALSE(equalIgnoringCase(u"é", u"É"));
    EXPECT_FALSE(equalIgnoringCase("@", "`"));
    EXPECT_TRUE(startsWithIgnoringCase("<!DOCTYPE html>", "<!doctype"));
    EXPECT_FALSE(startsWithIgnoringCase("<!doc", "<!doctype"));
}

TEST(ASCII, TrimsBlanksOfTheKindAskedForAtBothEnds) {
    EXPECT_EQ(trimmed("\t a b\r\n", isXMLSpace), "a b");
    EXPECT_EQ(trimmed("\f a \v", isXMLSpace), "\f a \v");
    EXPECT_EQ(trimmed("\f a \v", isSpace), "a");
    EXPECT_EQ(trimmed(u"  \n", isSpace), u"");
    EXPECT_EQ(trimmed(u"\u00A0x ", isSpace), u"\u00A0x");
}

TEST(ASCII, FindsTheOneCharacterBeyondASCIIWhereverItStands) {
    for (size_t size : {0, 1, 63, 64, 65, 130}) {
        EXPECT_TRUE(isASCII(std::string(size, '\x7F')));
        for (size_t at = 0; at < size; ++at) {
            std::string bytes(size, 'a');
            bytes[at] = '\x80';
            EXPECT_FALSE(isASCII(bytes)) << size << ' ' << at;
            std::u16string units(size, u'a');
            units[at] = u'\u0100';
            EXPECT_FALSE(isASCII(units)) << size << ' ' << at;
        }
    }
}

} // namespace

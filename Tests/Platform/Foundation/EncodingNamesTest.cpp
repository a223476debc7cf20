// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/EncodingNumbers.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

using namespace std::string_literals;

// The labels of the Encoding Standard, each with a code page of the same encoding by the registry's count.
constexpr struct {
    unsigned codePage;
    const char* labels;
} kLabels[] = {
    {65001, "unicode-1-1-utf-8 unicode11utf8 unicode20utf8 utf-8 utf8 x-unicode20utf8"},
    {866, "866 cp866 csibm866 ibm866"},
    {28592, "csisolatin2 iso-8859-2 iso-ir-101 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 l2 latin2"},
    {28593, "csisolatin3 iso-8859-3 iso-ir-109 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 l3 latin3"},
    {28594, "csisolatin4 iso-8859-4 iso-ir-110 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 l4 latin4"},
    {28595,
     "csisolatincyrillic cyrillic iso-8859-5 iso-ir-144 iso8859-5 iso88595 iso_8859-5 iso_8859-5:1988"},
    {28596, "arabic asmo-708 csiso88596e csiso88596i csisolatinarabic ecma-114 iso-8859-6 iso-8859-6-e "
            "iso-8859-6-i iso-ir-127 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987"},
    {28597,
     "csisolatingreek ecma-118 elot_928 greek greek8 iso-8859-7 iso-ir-126 iso8859-7 iso88597 iso_8859-7 "
     "iso_8859-7:1987 sun_eu_greek"},
    {28598,
     "csiso88598e csisolatinhebrew hebrew iso-8859-8 iso-8859-8-e iso-ir-138 iso8859-8 iso88598 iso_8859-8 "
     "iso_8859-8:1988 visual"},
    {38598, "csiso88598i iso-8859-8-i logical"},
    {28600, "csisolatin6 iso-8859-10 iso-ir-157 iso8859-10 iso885910 l6 latin6"},
    {28603, "iso-8859-13 iso8859-13 iso885913"},
    {28604, "iso-8859-14 iso8859-14 iso885914"},
    {28605, "csisolatin9 iso-8859-15 iso8859-15 iso885915 iso_8859-15 l9"},
    {28606, "iso-8859-16"},
    {20866, "cskoi8r koi koi8 koi8-r koi8_r"},
    {21866, "koi8-ru koi8-u"},
    {10000, "csmacintosh mac macintosh x-mac-roman"},
    {874, "dos-874 windows-874"},
    {28601, "iso-8859-11 iso8859-11 iso885911 tis-620"},
    {1250, "cp1250 windows-1250 x-cp1250"},
    {1251, "cp1251 windows-1251 x-cp1251"},
    {1252, "cp1252 windows-1252 x-cp1252"},
    {20127, "ansi_x3.4-1968 ascii us-ascii"},
    {28591, "cp819 csisolatin1 ibm819 iso-8859-1 iso-ir-100 iso8859-1 iso88591 iso_8859-1 iso_8859-1:1987 l1 "
            "latin1"},
    {1253, "cp1253 windows-1253 x-cp1253"},
    {1254, "cp1254 windows-1254 x-cp1254"},
    {28599, "csisolatin5 iso-8859-9 iso-ir-148 iso8859-9 iso88599 iso_8859-9 iso_8859-9:1989 l5 latin5"},
    {1255, "cp1255 windows-1255 x-cp1255"},
    {1256, "cp1256 windows-1256 x-cp1256"},
    {1257, "cp1257 windows-1257 x-cp1257"},
    {1258, "cp1258 windows-1258 x-cp1258"},
    {10007, "x-mac-cyrillic x-mac-ukrainian"},
    {936, "cp936 ms936 windows-936"},
    {51936, "chinese csgb2312 csiso58gb231280 gb2312 gb_2312 gb_2312-80 iso-ir-58"},
    {54936, "gb18030"},
    {52936, "hz-gb-2312"},
    {950, "cp950 windows-950"},
    {51932, "cseucpkdfmtjapanese euc-jp x-euc-jp"},
    {50220, "csiso2022jp iso-2022-jp"},
    {932, "csshiftjis ms932 ms_kanji shift-jis shift_jis sjis windows-31j x-sjis"},
    {51949, "cseuckr euc-kr"},
    {949, "csksc56011987 iso-ir-149 korean ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 windows-949"},
    {50225, "csiso2022kr iso-2022-kr"},
    {1361, "johab"},
    {1200, "unicodefeff utf-16le"},
    {1201, "unicodefffe utf-16be"},
    {12000, "utf-32le"},
    {12001, "utf-32be"},
};

TEST(EncodingNames, FontCharsetsHaveTheirCodePages) {
    EXPECT_EQ(codePageForFontCharset(0), 1252u);
    EXPECT_EQ(codePageForFontCharset(77), 10000u);
    EXPECT_EQ(codePageForFontCharset(128), 932u);
    EXPECT_EQ(codePageForFontCharset(204), 1251u);
    EXPECT_EQ(codePageForFontCharset(255), 850u);
    for (int unknown : {-1, 1, 2, 256}) EXPECT_EQ(codePageForFontCharset(unknown), 0u) << unknown;
}

} // namespace

TEST(EncodingNames, EveryLabelOfTheWebResolves) {
    for (const auto& row : kLabels) {
        std::istringstream labels(row.labels);
        for (std::string label; labels >> label;) {
            EXPECT_NE(encodingForIANAName(label), NSNoStringEncoding) << label;
            EXPECT_EQ(encodingForIANAName(label), encodingForCodePage(row.codePage)) << label;
        }
    }
    for (const char* label : {"gbk", "x-gbk"}) EXPECT_EQ(encodingForIANAName(label), kEncodingGBK);
    for (const char* label : {"big5", "cn-big5", "csbig5", "x-x-big5"}) {
        EXPECT_EQ(encodingForIANAName(label), kEncodingBig5);
    }
    EXPECT_EQ(encodingForIANAName("big5-hkscs"), kEncodingBig5HKSCS);
    for (const char* label : {"utf-16", "unicode", "csunicode", "ucs-2", "iso-10646-ucs-2"}) {
        EXPECT_EQ(encodingForIANAName(label), NSUnicodeStringEncoding);
    }
}

TEST(EncodingNames, CaseAndBlanksDoNotMatter) {
    EXPECT_EQ(encodingForIANAName("UTF-8"), NSUTF8StringEncoding);
    EXPECT_EQ(encodingForIANAName(" \t\r\nShift_JIS\f "), NSShiftJISStringEncoding);
    EXPECT_EQ(encodingForIANAName("X-Mac-Roman"), NSMacOSRomanStringEncoding);
    EXPECT_EQ(encodingForIANAName("ANSI"), NSWindowsCP1252StringEncoding);
}

TEST(EncodingNames, OthersAreUnknown) {
    for (const std::string& name : {""s, "   "s, "utf"s, "utf-88"s, "utf-8\0"s, "utf 8"s, "replacement"s,
                                    "\xFF"s, "zzzz"s, std::string(100'000, 'u')}) {
        EXPECT_EQ(encodingForIANAName(name), NSNoStringEncoding) << name.substr(0, 20);
    }
}

TEST(EncodingNames, PlatformNumbersAreThePublishedOnes) {
    EXPECT_EQ(encodingForIANAName("iso-8859-15"), 0x8000020Fu);
    EXPECT_EQ(encodingForIANAName("gb18030"), 0x80000632u);
    EXPECT_EQ(encodingForIANAName("koi8-r"), 0x80000A02u);
    EXPECT_EQ(encodingForIANAName("big5"), 0x80000A03u);
    EXPECT_EQ(encodingForIANAName("euc-kr"), 0x80000940u);
    EXPECT_EQ(encodingForIANAName("windows-1256"), 0x80000506u);
    EXPECT_EQ(encodingForCodePage(437), 0x80000400u);
}

TEST(EncodingNames, CodePagesHaveTheirEncodings) {
    EXPECT_EQ(encodingForCodePage(42), NSSymbolStringEncoding);
    EXPECT_EQ(encodingForCodePage(1252), NSWindowsCP1252StringEncoding);
    EXPECT_EQ(encodingForCodePage(10000), NSMacOSRomanStringEncoding);
    EXPECT_EQ(encodingForCodePage(10029), kEncodingMacCentralEurope);
    for (unsigned page : {0u, 1u, 41u, 1259u, 65000u, 65002u, ~0u}) {
        EXPECT_EQ(encodingForCodePage(page), NSNoStringEncoding) << page;
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORBasics.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using namespace std::string_literals;

NSString s(const char16_t* text) { return text; }

std::string bytesOf(const NSString& text, NSStringEncoding encoding) {
    return std::string(zorDataUsingEncoding(text, encoding, nullptr).bytes());
}

TEST(DataUsingEncoding, EncodesTheText) {
    EXPECT_EQ(bytesOf(u"café\0"s, NSUTF8StringEncoding), "caf\xC3\xA9\0"s);
    EXPECT_EQ(bytesOf(u"café", NSMacOSRomanStringEncoding), "caf\x8E");
    EXPECT_EQ(bytesOf(u"aé", NSUnicodeStringEncoding), "\xFF\xFE"
                                                       "a\0\xE9\0"s);
    EXPECT_TRUE(zorDataUsingEncoding(u"", NSUTF8StringEncoding, nullptr));
}

TEST(DataUsingEncoding, TellsWhatFailed) {
    NSError error;
    EXPECT_TRUE(zorDataUsingEncoding(u"a", NSASCIIStringEncoding, &error));
    EXPECT_FALSE(error);
    EXPECT_FALSE(zorDataUsingEncoding(u"é", NSASCIIStringEncoding, &error));
    EXPECT_EQ(error, NSError(u"ZORErrorDomain", 501,
                             {{s(u"ZORString"), s(u"é")},
                              {s(u"ZORStringEncoding"), NSNumber::withUnsignedInteger(1)}}));
    EXPECT_FALSE(zorDataUsingEncoding(std::u16string(1, 0xD800), NSUTF8StringEncoding, nullptr));
    EXPECT_FALSE(zorDataUsingEncoding(nullptr, NSUTF8StringEncoding, nullptr));
}

TEST(FileURL, AsksTheDisk) {
    TemporaryFolder folder;
    const NSString path = stringWithFileSystemRepresentation(folder.path());
    EXPECT_EQ(zorFileURL(path).absoluteString().utf8(), "file://" + folder.path() + "/");
    EXPECT_EQ(zorFastFileURL(path).absoluteString().utf8(), "file://" + folder.path());
    EXPECT_FALSE(zorFileURL(nullptr));
    EXPECT_FALSE(zorFastFileURL(nullptr));
}

TEST(FastFileURL, EscapesAsTheOtherDoes) {
    for (const char* path : {"/a b/c?#%;[é]\xFF", "/a/b+c=d&e@f", "none/here", "", "/"}) {
        const NSString text = stringWithFileSystemRepresentation(path);
        if (*path != '\0' && text.text() != u"/") {
            EXPECT_EQ(zorFastFileURL(text), zorFileURL(text)) << path;
        }
        EXPECT_EQ(fileSystemRepresentation(zorFastFileURL(text).path())[0], '/');
    }
    EXPECT_EQ(zorFastFileURL(u"/a/b/").absoluteString().utf8(), "file:///a/b");
    EXPECT_EQ(zorFastFileURL(u"/").absoluteString().utf8(), "file:///");
    EXPECT_EQ(zorFastFileURL(u"/a/é").path().text(), u"/a/é");
}

TEST(PercentEscapes, AreDecoded) {
    EXPECT_EQ(zorDecodePercentEscapes(u"a%20b%2fc+%C3%a9").text(), u"a b/c+é");
    EXPECT_EQ(zorDecodePercentEscapes(u"%F0%9F%98%80%00").text(), u"\U0001F600\0"s);
    EXPECT_EQ(zorDecodePercentEscapes(u"plain é").text(), u"plain é");
    EXPECT_EQ(zorDecodePercentEscapes(u"").text(), u"");
    EXPECT_EQ(zorDecodePercentEscapes(u"%2525").text(), u"%25");
    const std::u16string odd{0xD800, u'%', u'4', u'1', 0};
    EXPECT_EQ(zorDecodePercentEscapes(odd).text(), std::u16string({0xD800, u'A', 0}));
}

TEST(PercentEscapes, ThatAreMalformedGiveNil) {
    for (const char16_t* bad : {u"%", u"a%2", u"%2g", u"%%20", u"%C3", u"%C3x", u"%C3%28", u"%FF", u"%80",
                                u"%C0%AF", u"%ED%A0%80", u"%F5%80%80%80", u"%E2%82", u"%\uFF12\uFF10"}) {
        EXPECT_FALSE(zorDecodePercentEscapes(bad)) << NSString(bad).utf8();
        EXPECT_FALSE(zorDecodePercentEscapesKeepingEscaped(bad, u"x")) << NSString(bad).utf8();
    }
    EXPECT_FALSE(zorDecodePercentEscapes(nullptr));
}

TEST(PercentEscapes, OfCharactersToKeepStay) {
    EXPECT_EQ(zorDecodePercentEscapesKeepingEscaped(u"a%2Fb%20c%2f", u"/").text(), u"a%2Fb c%2f");
    EXPECT_EQ(zorDecodePercentEscapesKeepingEscaped(u"%C3%A9%C3%A8", u"é").text(), u"%C3%A9è");
    EXPECT_EQ(zorDecodePercentEscapesKeepingEscaped(u"%41", u"").text(), u"A");
    EXPECT_EQ(zorDecodePercentEscapesKeepingEscaped(u"%41", nullptr).text(), u"%41");
    EXPECT_EQ(zorDecodePercentEscapesKeepingEscaped(u"%", nullptr).text(), u"%");
}

TEST(EncodingForAQuery, EscapesWhatPartsPairs) {
    EXPECT_EQ(zorEncodeForQueryString(u"a&b=c d+e/?é").text(), u"a%26b%3Dc%20d+e/?%C3%A9");
    EXPECT_EQ(zorEncodeForQueryString(u"\"#%<>[\\]^`{|}\n\x7F").text(),
              u"%22%23%25%3C%3E%5B%5C%5D%5E%60%7B%7C%7D%0A%7F");
    EXPECT_EQ(zorEncodeForQueryString(u"!$'()*+,-./:;?@_~AZaz09").text(), u"!$'()*+,-./:;?@_~AZaz09");
    EXPECT_EQ(zorEncodeForQueryString(u"\U0001F600\0"s).text(), u"%F0%9F%98%80%00");
    EXPECT_EQ(zorEncodeForQueryString(u"").text(), u"");
    EXPECT_FALSE(zorEncodeForQueryString(u"a\xD83D"s));
    EXPECT_FALSE(zorEncodeForQueryString(u"\xDE00\xD83D"s));
    EXPECT_FALSE(zorEncodeForQueryString(nullptr));
}

TEST(EncodingAURL, KeepsWhatItIsTold) {
    EXPECT_EQ(zorEncodeURLKeepingUnescaped(u"a&b=c #%20é", u"#%").text(), u"a&b=c%20#%20%C3%A9");
    EXPECT_EQ(zorEncodeURLKeepingUnescaped(u"é è", u"é").text(), u"é%20%C3%A8");
    EXPECT_EQ(zorEncodeURLKeepingUnescaped(u"\U0001F600 ", u"\U0001F600").text(), u"\U0001F600%20");
    EXPECT_EQ(zorEncodeURLKeepingUnescaped(u"\U0001F600", u"\xD83D"s).text(), u"%F0%9F%98%80");
    EXPECT_EQ(zorEncodeURLKeepingUnescaped(u"a b", nullptr).text(), u"a%20b");
    EXPECT_EQ(zorEncodeURLKeepingUnescaped(u"a%b", u"").text(), u"a%25b");
}

TEST(QueryString, IsReadInPairs) {
    const NSDictionary found =
        zorQueryStringDictionary(u"a=1&b&c=1=2&&d=&=e&a=%C3%A9&%66+g=h%3D&bad=%zz&%=x");
    const NSDictionary expected{
        {s(u"a"), s(u"é")}, {s(u"d"), s(u"")}, {s(u""), s(u"e")}, {s(u"f+g"), s(u"h=")}};
    EXPECT_EQ(found, expected) << found.description().utf8();
    for (const char16_t* nothing : {u"", u"a", u"&&", u"a=b=c"}) {
        EXPECT_TRUE(zorQueryStringDictionary(nothing));
        EXPECT_EQ(zorQueryStringDictionary(nothing).count(), 0u);
    }
}

TEST(QueryString, IsWrittenInTheOrderOfTheKeys) {
    const NSDictionary values{{s(u"b"), s(u"x&y=z")}, {s(u"A"), s(u"1 2")}, {s(u"é"), s(u"")}};
    EXPECT_EQ(zorQueryStringWithDictionary(values).text(), u"A=1%202&b=x%26y%3Dz&%C3%A9=");
    EXPECT_EQ(zorQueryStringWithDictionary(NSDictionary::dictionary()).text(), u"");
    const NSDictionary empty{{s(u""), s(u"")}, {s(u"a"), s(u"")}};
    EXPECT_EQ(zorQueryStringWithDictionary(empty).text(), u"=&a=");
}

TEST(QueryString, ReadsWhatItWrote) {
    const NSDictionary values{{s(u"a b"), s(u"=&%")}, {s(u"Z"), s(u"\U0001F600")}, {s(u""), s(u"+")}};
    EXPECT_EQ(zorQueryStringDictionary(zorQueryStringWithDictionary(values)), values);
}

TEST(FourCharCodes, AreBigEndianMacRoman) {
    EXPECT_EQ(zorFourCharCodeValue(u"PDF "), 0x50444620u);
    EXPECT_EQ(zorFourCharCodeValue(u"\u00C4\u2122\u02C7\0"s), 0x80AAFF00u);
    EXPECT_EQ(zorFourCharCodeValue(u"ab\u4E00c"), 0u);
    EXPECT_EQ(zorFourCharCodeValue(u"ab\U0001F600"), 0u);
    EXPECT_EQ(zorStringWithFourCharCode(0x50444620).text(), u"PDF ");
    EXPECT_EQ(zorStringWithFourCharCode(0x80AAFF00).text(), u"\u00C4\u2122\u02C7\0"s);
    for (uint32_t code = 0x01020304; code < 0xFE000000; code += 0x01010101) {
        EXPECT_EQ(zorFourCharCodeValue(zorStringWithFourCharCode(code)), code);
    }
}

TEST(FourCharCodes, KnowTheUnknown) {
    EXPECT_EQ(zorUnknownCode().text(), std::u16string(4, u'\0'));
    EXPECT_EQ(zorStringWithFourCharCode(0).text(), std::u16string(4, u'\0'));
    EXPECT_TRUE(zorIsUnknownCode(zorStringWithFourCharCode(0)));
    EXPECT_FALSE(zorIsUnknownCode(u"????"));
    EXPECT_FALSE(zorIsUnknownCode(u""));
    EXPECT_FALSE(zorIsUnknownCode(nullptr));
}

TEST(FourCharCodesDeathTest, OfAnotherLengthStopTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH((void)zorFourCharCodeValue(u"PDF"),
                 "NSString.ZORBasics:[0-9]+ -zorFourCharCodeValue: Assertion Failed: Precondition Failed: "
                 "\\[self length\\] == 4\n");
    EXPECT_DEATH((void)zorFourCharCodeValue(u"PDF  "),
                 "Assertion failed: \\(\\(\\(\\[self length\\] == 4\\)\\)\\), function "
                 "-\\[NSString\\(ZORFourCharCodes\\) zorFourCharCodeValue\\], file "
                 "ZORFoundation/Source/NSString.ZORBasics, line [0-9]+\\.\n");
}

TEST(Punctuation, IsTypographic) {
    const std::u16string all =
        (zorEllipsis() + zorEnDash() + zorEmDash() + zorLeftDoubleQuote() + zorRightDoubleQuote() +
         zorLeftSingleQuote() + zorRightSingleQuote() + zorLeftDoubleGuillemet() + zorRightDoubleGuillemet() +
         zorLeftSingleGuillemet() + zorRightSingleGuillemet())
            .text();
    EXPECT_EQ(all, u"\u2026\u2013\u2014\u201C\u201D\u2018\u2019\u00AB\u00BB\u2039\u203A");
    EXPECT_EQ(zorDoubleQuotedString(u"a").text(), u"\u201Ca\u201D");
}

} // namespace

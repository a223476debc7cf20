// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/DocumentReader.h"

#include "Platform/Foundation/NSStringEncoding.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

using namespace std::string_view_literals;

DocumentContents contentsOf(std::string_view bytes) {
    DocumentContents contents;
    Deadline deadline;
    EXPECT_EQ(readPlainText(bytes, deadline, contents), ReadStatus::read);
    return contents;
}

struct PlainTextCase {
    std::string_view bytes;
    std::u16string_view text;
    NSStringEncoding encoding;
};

TEST(PlainTextReader, findsTheEncoding) {
    constexpr PlainTextCase kCases[] = {
        {""sv, u""sv, NSUTF8StringEncoding},
        {"abc"sv, u"abc"sv, NSUTF8StringEncoding},
        {"caf\xC3\xA9"sv, u"caf\u00E9"sv, NSUTF8StringEncoding},
        {"\xF0\x9F\x98\x80"sv, u"\U0001F600"sv, NSUTF8StringEncoding},
        {"\xEF\xBB\xBF"
         "a\xC3\xA9"sv,
         u"a\u00E9"sv, NSUTF8StringEncoding},
        {"\xEF\xBB\xBF"sv, u""sv, NSUTF8StringEncoding},
        {"a\xEF\xBB\xBF"sv, u"a\uFEFF"sv, NSUTF8StringEncoding},
        {"caf\x8E"sv, u"caf\u00E9"sv, NSMacOSRomanStringEncoding},
        {"\xC3\xA9\xC3"sv, u"\u221A\u00A9\u221A"sv, NSMacOSRomanStringEncoding},
        {"\xED\xA0\x80"sv, u"\u00CC\u2020\u00C4"sv, NSMacOSRomanStringEncoding},
        {"\xFE\xFF\0a\xD8\x3D\xDE\0"sv, u"a\U0001F600"sv, NSUnicodeStringEncoding},
        {"\xFF\xFE"
         "a\0\xE9\0"sv,
         u"a\u00E9"sv, NSUnicodeStringEncoding},
        {"\xFF\xFE"sv, u""sv, NSUnicodeStringEncoding},
        {"\xFF\xFE"
         "a\0b"sv,
         u"a"sv, NSUnicodeStringEncoding},
        {"\xFF"sv, u"\u02C7"sv, NSMacOSRomanStringEncoding},
    };
    for (const PlainTextCase& c : kCases) {
        DocumentContents contents = contentsOf(c.bytes);
        EXPECT_EQ(contents.text, c.text) << testing::PrintToString(c.bytes);
        EXPECT_EQ(contents.info.characterEncoding, c.encoding) << testing::PrintToString(c.bytes);
    }
}

TEST(PlainTextReader, keepsTheTextAsItIs) {
    EXPECT_EQ(contentsOf(" a\r\nb\rc\0d\f\t\n"sv).text, u" a\r\nb\rc\0d\f\t\n"sv);
    EXPECT_EQ(contentsOf("\xFF\xFE\x3D\xD8"sv).text, (std::u16string{char16_t(0xD83D)}));
}

TEST(PlainTextReader, saysNothingElse) {
    DocumentInfo info = contentsOf("{\\rtf1").info;
    EXPECT_EQ(info.title, u"");
    EXPECT_FALSE(info.paperSize || info.cocoaVersion || info.leftMargin || info.creationTime);
}

} // namespace

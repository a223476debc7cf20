// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSStringEncoding.h"

#include "Platform/Foundation/EncodingNumbers.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iconv.h>

using namespace std::string_literals;

namespace {

std::u16string decoded(std::string_view bytes, NSStringEncoding encoding) {
    std::u16string text;
    appendDecoded(text, bytes, encoding);
    return text;
}

bool isWhole(std::string_view bytes, NSStringEncoding encoding) {
    std::u16string text;
    return appendDecoded(text, bytes, encoding);
}

std::string everyByte() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes.push_back(char(byte));
    return bytes;
}

// The units of all bytes by the C library, U+FFFD where it has none; empty when it lacks the charset.
std::u16string pageOfLibrary(const char* charset) {
    iconv_t descriptor = iconv_open("UTF-16BE", charset);
    if (descriptor == iconv_t(-1)) return {};
    std::u16string page;
    for (char byte : everyByte()) {
        unsigned char units[8];
        char *in = &byte, *out = reinterpret_cast<char*>(units);
        size_t left = 1, room = sizeof units;
        iconv(descriptor, nullptr, nullptr, nullptr, nullptr);
        const bool defined = iconv(descriptor, &in, &left, &out, &room) != size_t(-1);
        // Some modules hold the last character back for a combining mark.
        iconv(descriptor, nullptr, nullptr, &out, &room);
        page.push_back(defined ? char16_t(units[0] << 8 | units[1]) : kReplacementCharacter);
    }
    iconv_close(descriptor);
    return page;
}

constexpr NSStringEncoding kWindowsPages[] = {
    NSWindowsCP1250StringEncoding, NSWindowsCP1251StringEncoding, NSWindowsCP1252StringEncoding,
    NSWindowsCP1253StringEncoding, NSWindowsCP1254StringEncoding, kEncodingWindows1255,
    kEncodingWindows1256,          kEncodingWindows1257,          kEncodingWindows1258,
};

bool isWindowsPage(NSStringEncoding encoding) {
    return std::find(std::begin(kWindowsPages), std::end(kWindowsPages), encoding) != std::end(kWindowsPages);
}

struct Page {
    NSStringEncoding encoding;
    const char* libraryName; // null where the library has none, or another table
};

constexpr Page kPages[] = {
    {NSASCIIStringEncoding, "ISO-8859-1"},
    {NSNEXTSTEPStringEncoding, nullptr},
    {NSISOLatin1StringEncoding, "ISO-8859-1"},
    {NSISOLatin2StringEncoding, "ISO-8859-2"},
    {kEncodingISOLatin3, "ISO-8859-3"},
    {kEncodingISOLatin4, "ISO-8859-4"},
    {kEncodingISOCyrillic, "ISO-8859-5"},
    {kEncodingISOArabic, "ISO-8859-6"},
    {kEncodingISOGreek, "ISO-8859-7"},
    {kEncodingISOHebrew, "ISO-8859-8"},
    {kEncodingISOLatin5, "ISO-8859-9"},
    {kEncodingISOLatin6, "ISO-8859-10"},
    {kEncodingISOThai, "ISO-8859-11"},
    {kEncodingISOLatin7, "ISO-8859-13"},
    {kEncodingISOLatin8, "ISO-8859-14"},
    {kEncodingISOLatin9, "ISO-8859-15"},
    {kEncodingISOLatin10, "ISO-8859-16"},
    {NSWindowsCP1250StringEncoding, "CP1250"},
    {NSWindowsCP1251StringEncoding, "CP1251"},
    {NSWindowsCP1252StringEncoding, "CP1252"},
    {NSWindowsCP1253StringEncoding, "CP1253"},
    {NSWindowsCP1254StringEncoding, "CP1254"},
    {kEncodingWindows1255, "CP1255"},
    {kEncodingWindows1256, "CP1256"},
    {kEncodingWindows1257, "CP1257"},
    {kEncodingWindows1258, "CP1258"},
    {kEncodingDOS437, "CP437"},
    {kEncodingDOS720, nullptr},
    {kEncodingDOS737, "CP737"},
    {kEncodingDOS775, "CP775"},
    {kEncodingDOS850, "CP850"},
    {kEncodingDOS852, "CP852"},
    {kEncodingDOS855, "CP855"},
    {kEncodingDOS857, "CP857"},
    {kEncodingDOS858, "IBM858"},
    {kEncodingDOS860, "CP860"},
    {kEncodingDOS861, "CP861"},
    {kEncodingDOS862, "CP862"},
    {kEncodingDOS863, "CP863"},
    {kEncodingDOS864, "CP864"},
    {kEncodingDOS865, "CP865"},
    {kEncodingDOS866, "CP866"},
    {kEncodingDOS869, "CP869"},
    {kEncodingDOS874, "CP874"},
    {kEncodingKOI8R, "KOI8-R"},
    {kEncodingKOI8U, "KOI8-U"},
    {NSMacOSRomanStringEncoding, "MACINTOSH"},
    {kEncodingMacGreek, nullptr},
    {kEncodingMacCyrillic, "MAC-UK"},
    {kEncodingMacCentralEurope, "MAC-CENTRALEUROPE"},
    {kEncodingMacTurkish, nullptr},
    {kEncodingMacCroatian, nullptr},
    {kEncodingMacIcelandic, nullptr},
    {kEncodingMacRomanian, nullptr},
    {NSSymbolStringEncoding, nullptr},
};

// Where these tables knowingly part from the library's.
char16_t unitInLibrary(NSStringEncoding encoding, unsigned byte, char16_t unit) {
    if (isWindowsPage(encoding) && unit == byte && byte >= 0x80 && byte < 0xA0) return kReplacementCharacter;
    if (encoding == kEncodingWindows1255 && byte == 0xCA) return kReplacementCharacter;
    if (encoding == NSMacOSRomanStringEncoding && byte == 0xC6) return u'\u0394'; // not the increment sign
    if (encoding == NSMacOSRomanStringEncoding && byte == 0xF0) return u'\uE01E'; // another private use
    if (encoding == kEncodingMacCyrillic && byte == 0xFF) return u'\u00A4';       // before the euro sign
    return unit;
}

TEST(NSStringEncoding, ByteOrderMarksAreKnownAtTheStart) {
    using namespace std::string_view_literals;
    EXPECT_EQ(byteOrderMark("\xEF\xBB\xBFx").encoding, NSUTF8StringEncoding);
    EXPECT_EQ(byteOrderMark("\xEF\xBB\xBFx").size, 3u);
    EXPECT_EQ(byteOrderMark("\xFE\xFF").encoding, NSUTF16BigEndianStringEncoding);
    EXPECT_EQ(byteOrderMark("\xFF\xFE\0\0"sv).encoding, NSUTF16LittleEndianStringEncoding);
    EXPECT_EQ(byteOrderMark("\xFF\xFE\0\0"sv).size, 2u);
    EXPECT_EQ(byteOrderMarkOfUTF32("\xFF\xFE\0\0"sv).encoding, NSUTF32LittleEndianStringEncoding);
    EXPECT_EQ(byteOrderMarkOfUTF32("\0\0\xFE\xFF"sv).encoding, NSUTF32BigEndianStringEncoding);
    EXPECT_EQ(byteOrderMarkOfUTF32("\0\0\xFE\xFF"sv).size, 4u);
    for (std::string_view without : {""sv, "\xEF\xBB"sv, "\xFF"sv, "x\xFE\xFF"sv}) {
        EXPECT_EQ(byteOrderMark(without).encoding, NSNoStringEncoding);
        EXPECT_EQ(byteOrderMark(without).size, 0u);
        EXPECT_EQ(byteOrderMarkOfUTF32(without).encoding, NSNoStringEncoding);
    }
}

} // namespace

TEST(NSStringEncoding, PagesAgreeWithTheLibrary) {
    for (const Page& page : kPages) {
        if (!page.libraryName) continue;
        SCOPED_TRACE(page.libraryName);
        const std::u16string expected = pageOfLibrary(page.libraryName);
        if (expected.empty()) continue; // a system with few modules
        const std::u16string text = decoded(everyByte(), page.encoding);
        for (unsigned byte = 0; byte < 256; ++byte) {
            EXPECT_EQ(unitInLibrary(page.encoding, byte, text[byte]), expected[byte]) << "byte " << byte;
        }
    }
}

TEST(NSStringEncoding, PagesDecodeByteByByteAsTheyDoAtOnce) {
    for (const Page& page : kPages) {
        SCOPED_TRACE(page.encoding);
        const std::u16string all = decoded(everyByte(), page.encoding);
        const char16_t* upper = upperHalf(page.encoding);
        ASSERT_EQ(all.size(), 256u);
        for (unsigned byte = 0; byte < 256; ++byte) {
            const char each = char(byte);
            EXPECT_EQ(decoded({&each, 1}, page.encoding), all.substr(byte, 1));
            const bool filled =
                isWindowsPage(page.encoding) && byte >= 0x80 && byte < 0xA0 && all[byte] == byte;
            EXPECT_EQ(isWhole({&each, 1}, page.encoding), all[byte] != kReplacementCharacter && !filled);
            if (upper && byte >= 0x80) {
                EXPECT_EQ(upper[byte - 0x80], all[byte]);
            }
        }
        const std::string longer(5000, '\xE4');
        EXPECT_EQ(decoded(longer, page.encoding), std::u16string(5000, all[0xE4]));
    }
}

TEST(NSStringEncoding, NoPageGivesTwoBytesTheSameCharacter) {
    for (const Page& page : kPages) {
        if (page.encoding == NSSymbolStringEncoding) continue; // serif and sans-serif signs
        SCOPED_TRACE(page.encoding);
        std::u16string text = decoded(everyByte(), page.encoding);
        std::erase(text, kReplacementCharacter);
        std::sort(text.begin(), text.end());
        EXPECT_EQ(std::adjacent_find(text.begin(), text.end()), text.end());
    }
}

TEST(NSStringEncoding, PagesThatTheLibraryLacksHaveTheirCharacters) {
    const struct {
        NSStringEncoding encoding;
        std::string bytes;
        std::u16string text;
    } cases[] = {
        {NSNEXTSTEPStringEncoding, "\x80\x81\xAE\xE8\xFB\xFE\xFF", u"\u00A0ÀﬁŁß\uFFFD\uFFFD"},
        {kEncodingDOS720, "\x9F\xA0\xE0", u"ابض"},
        {kEncodingMacGreek, "\xB0\xE1\xF7", u"Αας"},
        {kEncodingMacTurkish, "\xDA\xDB\xDC\xDD\xDE\xDF\xF5", u"ĞğİıŞş\uFFFD"},
        {kEncodingMacCroatian, "\xA9\xB9\xC6\xE6\xC8\xE8\xD0\xF0\xAE\xBE", u"ŠšĆćČčĐđŽž"},
        {kEncodingMacIcelandic, "\xA0\xDC\xDD\xDE\xDF\xE0", u"ÝÐðÞþý"},
        {kEncodingMacRomanian, "\xAE\xAF\xBE\xBF\xDE\xDF", u"ĂȘășȚț"},
        {kEncodingMacCyrillic, "\x80\xDF\xE0\xFE\xFF\xA2\xB6", u"Аяаю€Ґґ"},
        {NSSymbolStringEncoding, "abp\xB7\xA3\xDE\xD2 \"", u"αβπ•≤⇒® ∀"},
    };
    for (const auto& each : cases) EXPECT_EQ(decoded(each.bytes, each.encoding), each.text);
}

TEST(NSStringEncoding, UpperHalvesAreThoseOfOneByteSupersetsOfASCII) {
    for (const Page& page : kPages) {
        const bool hasASCII = page.encoding != NSSymbolStringEncoding && page.encoding != kEncodingDOS864;
        EXPECT_EQ(upperHalf(page.encoding) != nullptr, hasASCII) << page.encoding;
    }
    EXPECT_EQ(upperHalf(NSNoStringEncoding), nullptr);
    EXPECT_EQ(upperHalf(NSUTF8StringEncoding), nullptr);
    EXPECT_EQ(upperHalf(NSUnicodeStringEncoding), nullptr);
}

TEST(NSStringEncoding, UnknownEncodingsAreReadAsWindowsLatin) {
    EXPECT_EQ(decoded("\x80 \x93x\x94 \xE9", NSNoStringEncoding), u"€ “x” é");
    EXPECT_EQ(decoded("\x80 \x93x\x94 \xE9", 0x8000FFFF), u"€ “x” é");
}

TEST(NSStringEncoding, DecodingAppends) {
    for (NSStringEncoding encoding : {NSUTF8StringEncoding, NSISOLatin1StringEncoding,
                                      NSShiftJISStringEncoding, NSISO2022JPStringEncoding}) {
        std::u16string text = u"₩\\ ";
        EXPECT_TRUE(appendDecoded(text, "a", encoding));
        EXPECT_EQ(text, u"₩\\ a");
    }
    std::u16string text = u"₩\\ ";
    EXPECT_TRUE(appendDecoded(text, "\x88\x61\\", kEncodingJohab));
    EXPECT_EQ(text, u"₩\\ 가\\");
}

TEST(NSStringEncoding, UTF16FollowsItsMarkOrItsName) {
    EXPECT_EQ(decoded("\xFE\xFF\0a\xD8\x3D\xDE\x00"s, NSUnicodeStringEncoding), u"a\U0001F600");
    EXPECT_EQ(decoded("\xFF\xFE"
                      "a\0"s,
                      NSUnicodeStringEncoding),
              u"a");
    EXPECT_EQ(decoded("\0a"s, NSUnicodeStringEncoding), u"a");
    EXPECT_EQ(decoded("\xFE\xFF\0a"s, NSUTF16BigEndianStringEncoding), u"\uFEFFa");
    EXPECT_EQ(decoded("\xFF\xFE"
                      "a\0"s,
                      NSUTF16LittleEndianStringEncoding),
              u"\uFEFFa");
    EXPECT_EQ(decoded("", NSUnicodeStringEncoding), u"");
    EXPECT_EQ(decoded("\xFF\xFE", NSUnicodeStringEncoding), u"");

    std::string bytes;
    std::u16string expected;
    for (char16_t unit = 0; unit < 0xFFFF; ++unit) {
        bytes += {char(unit & 0xFF), char(unit >> 8)};
        expected.push_back(unit);
    }
    EXPECT_TRUE(isWhole(bytes, NSUTF16LittleEndianStringEncoding)) << "lone surrogates are units like others";
    EXPECT_EQ(decoded(bytes, NSUTF16LittleEndianStringEncoding), expected);

    EXPECT_FALSE(isWhole("\0ab"s, NSUTF16BigEndianStringEncoding));
    EXPECT_EQ(decoded("\0ab"s, NSUTF16BigEndianStringEncoding), u"a");
    EXPECT_EQ(decoded("a", NSUTF16BigEndianStringEncoding), u"");
}

TEST(NSStringEncoding, UTF32FollowsItsMarkOrItsName) {
    EXPECT_EQ(decoded("\0\0\xFE\xFF\0\1\xF6\0"s, NSUTF32StringEncoding), u"\U0001F600");
    EXPECT_EQ(decoded("\xFF\xFE\0\0a\0\0\0"s, NSUTF32StringEncoding), u"a");
    EXPECT_EQ(decoded("\0\0\0a"s, NSUTF32StringEncoding), u"a");
    EXPECT_EQ(decoded("\0\0\xFE\xFF"s, NSUTF32BigEndianStringEncoding), u"\uFEFF");
    EXPECT_EQ(decoded("\0\xF6\1\0"s, NSUTF32LittleEndianStringEncoding), u"\U0001F600");
    EXPECT_TRUE(isWhole("\0\x10\xFF\xFF"s, NSUTF32BigEndianStringEncoding));
    for (const std::string& bad : {"\0\x11\0\0"s, "\0\0\xD8\0"s, "\xFF\xFF\xFF\xFF"s}) {
        EXPECT_FALSE(isWhole(bad, NSUTF32BigEndianStringEncoding));
        EXPECT_EQ(decoded(bad + "\0\0\0a"s, NSUTF32BigEndianStringEncoding), u"\uFFFDa");
    }
    EXPECT_FALSE(isWhole("\0\0\0ab"s, NSUTF32BigEndianStringEncoding));
    EXPECT_EQ(decoded("\0\0\0ab"s, NSUTF32BigEndianStringEncoding), u"a");
}

TEST(NSStringEncoding, UTF8KeepsItsMark) {
    EXPECT_EQ(decoded("\xEF\xBB\xBF\xC3\xA9", NSUTF8StringEncoding), u"\uFEFFé");
    EXPECT_FALSE(isWhole("\xED\xA0\x80", NSUTF8StringEncoding));
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/EncodingNumbers.h"

#include <algorithm>
#include <array>

namespace {

struct Names {
    NSStringEncoding encoding;
    std::string_view list; // in lower case, parted by single blanks
};

// The labels of the Encoding Standard, the names and aliases of the IANA registry, and what mail programs and
// word processors write besides. Where the first two differ, the registry decides.
constexpr Names kNames[] = {
    {NSASCIIStringEncoding,
     "us-ascii ascii us ansi_x3.4-1968 ansi_x3.4-1986 iso646-us iso-ir-6 iso_646.irv:1991 "
     "ibm367 cp367 csascii"},
    {NSUTF8StringEncoding,
     "utf-8 utf8 unicode-1-1-utf-8 unicode11utf8 unicode20utf8 x-unicode20utf8 csutf8 cp65001"},
    {NSUnicodeStringEncoding, "utf-16 utf16 csutf16 unicode csunicode iso-10646-ucs-2 ucs-2"},
    {NSUTF16BigEndianStringEncoding, "utf-16be csutf16be unicodefffe"},
    {NSUTF16LittleEndianStringEncoding, "utf-16le csutf16le unicodefeff"},
    {NSUTF32StringEncoding, "utf-32 utf32 csutf32 iso-10646-ucs-4 csucs4 ucs-4"},
    {NSUTF32BigEndianStringEncoding, "utf-32be csutf32be"},
    {NSUTF32LittleEndianStringEncoding, "utf-32le csutf32le"},

    {NSISOLatin1StringEncoding,
     "iso-8859-1 iso8859-1 iso88591 iso_8859-1 iso_8859-1:1987 iso-ir-100 latin1 latin-1 "
     "l1 ibm819 cp819 csisolatin1"},
    {NSISOLatin2StringEncoding,
     "iso-8859-2 iso8859-2 iso88592 iso_8859-2 iso_8859-2:1987 iso-ir-101 latin2 latin-2 "
     "l2 csisolatin2"},
    {kEncodingISOLatin3,
     "iso-8859-3 iso8859-3 iso88593 iso_8859-3 iso_8859-3:1988 iso-ir-109 latin3 l3 csisolatin3"},
    {kEncodingISOLatin4,
     "iso-8859-4 iso8859-4 iso88594 iso_8859-4 iso_8859-4:1988 iso-ir-110 latin4 l4 csisolatin4"},
    {kEncodingISOCyrillic, "iso-8859-5 iso8859-5 iso88595 iso_8859-5 iso_8859-5:1988 iso-ir-144 cyrillic "
                           "csisolatincyrillic"},
    {kEncodingISOArabic,
     "iso-8859-6 iso8859-6 iso88596 iso_8859-6 iso_8859-6:1987 iso-ir-127 iso-8859-6-e "
     "iso-8859-6-i iso_8859-6-e iso_8859-6-i csiso88596e csiso88596i arabic asmo-708 ecma-114 "
     "csisolatinarabic"},
    {kEncodingISOGreek,
     "iso-8859-7 iso8859-7 iso88597 iso_8859-7 iso_8859-7:1987 iso-ir-126 greek greek8 elot_928 "
     "ecma-118 sun_eu_greek csisolatingreek"},
    {kEncodingISOHebrew,
     "iso-8859-8 iso8859-8 iso88598 iso_8859-8 iso_8859-8:1988 iso-ir-138 iso-8859-8-e "
     "iso-8859-8-i iso_8859-8-e iso_8859-8-i csiso88598e csiso88598i hebrew visual logical "
     "csisolatinhebrew"},
    {kEncodingISOLatin5,
     "iso-8859-9 iso8859-9 iso88599 iso_8859-9 iso_8859-9:1989 iso-ir-148 latin5 l5 csisolatin5"},
    {kEncodingISOLatin6, "iso-8859-10 iso8859-10 iso885910 iso_8859-10 iso_8859-10:1992 iso-ir-157 latin6 l6 "
                         "csisolatin6"},
    {kEncodingISOThai, "iso-8859-11 iso8859-11 iso885911 iso_8859-11 tis-620 tis620 cstis620"},
    {kEncodingISOLatin7, "iso-8859-13 iso8859-13 iso885913 iso_8859-13 latin7 l7 csiso885913"},
    {kEncodingISOLatin8, "iso-8859-14 iso8859-14 iso885914 iso_8859-14 iso_8859-14:1998 iso-ir-199 latin8 l8 "
                         "iso-celtic csiso885914"},
    {kEncodingISOLatin9,
     "iso-8859-15 iso8859-15 iso885915 iso_8859-15 latin-9 latin9 l9 csisolatin9 csiso885915"},
    {kEncodingISOLatin10,
     "iso-8859-16 iso8859-16 iso885916 iso_8859-16 iso_8859-16:2001 iso-ir-226 latin10 l10 "
     "csiso885916"},

    {NSWindowsCP1250StringEncoding, "windows-1250 cp1250 x-cp1250 ms-ee cswindows1250"},
    {NSWindowsCP1251StringEncoding, "windows-1251 cp1251 x-cp1251 ms-cyrl cswindows1251 win-1251"},
    {NSWindowsCP1252StringEncoding, "windows-1252 cp1252 x-cp1252 ms-ansi cswindows1252 ansi x-ansi"},
    {NSWindowsCP1253StringEncoding, "windows-1253 cp1253 x-cp1253 ms-greek cswindows1253"},
    {NSWindowsCP1254StringEncoding, "windows-1254 cp1254 x-cp1254 ms-turk cswindows1254"},
    {kEncodingWindows1255, "windows-1255 cp1255 x-cp1255 ms-hebr cswindows1255"},
    {kEncodingWindows1256, "windows-1256 cp1256 x-cp1256 ms-arab cswindows1256"},
    {kEncodingWindows1257, "windows-1257 cp1257 x-cp1257 winbaltrim cswindows1257"},
    {kEncodingWindows1258, "windows-1258 cp1258 x-cp1258 cswindows1258"},

    {kEncodingDOS437, "ibm437 cp437 437 dos-437 cspc8codepage437"},
    {kEncodingDOS720, "cp720 dos-720"},
    {kEncodingDOS737, "ibm737 cp737 dos-737"},
    {kEncodingDOS775, "ibm775 cp775 dos-775 cspc775baltic"},
    {kEncodingDOS850, "ibm850 cp850 850 dos-850 cspc850multilingual"},
    {kEncodingDOS852, "ibm852 cp852 852 dos-852 cspcp852"},
    {kEncodingDOS855, "ibm855 cp855 855 dos-855 csibm855"},
    {kEncodingDOS857, "ibm857 cp857 857 dos-857 csibm857"},
    {kEncodingDOS858, "ibm00858 ibm858 cp858 cp00858 ccsid00858 pc-multilingual-850+euro csibm00858"},
    {kEncodingDOS860, "ibm860 cp860 860 dos-860 csibm860"},
    {kEncodingDOS861, "ibm861 cp861 861 dos-861 cp-is csibm861"},
    {kEncodingDOS862, "ibm862 cp862 862 dos-862 cspc862latinhebrew"},
    {kEncodingDOS863, "ibm863 cp863 863 dos-863 csibm863"},
    {kEncodingDOS864, "ibm864 cp864 dos-864 csibm864"},
    {kEncodingDOS865, "ibm865 cp865 865 dos-865 csibm865"},
    {kEncodingDOS866, "ibm866 cp866 866 dos-866 csibm866"},
    {kEncodingDOS869, "ibm869 cp869 869 dos-869 cp-gr csibm869"},
    {kEncodingDOS874, "windows-874 cp874 ibm874 dos-874 x-cp874 cswindows874"},

    {kEncodingKOI8R, "koi8-r koi8_r koi8r koi koi8 cskoi8r"},
    {kEncodingKOI8U, "koi8-u koi8-ru koi8_u koi8u cskoi8u"},
    {NSNEXTSTEPStringEncoding, "x-nextstep nextstep"},
    {NSSymbolStringEncoding, "adobe-symbol-encoding x-mac-symbol cshppsmath"},
    {NSMacOSRomanStringEncoding, "macintosh mac x-mac-roman macroman mac-roman csmacintosh cp10000"},
    {kEncodingMacJapanese, "x-mac-japanese"},
    {kEncodingMacChineseTraditional, "x-mac-chinesetrad x-mac-trad-chinese"},
    {kEncodingMacKorean, "x-mac-korean"},
    {kEncodingMacGreek, "x-mac-greek"},
    {kEncodingMacCyrillic, "x-mac-cyrillic x-mac-ukrainian"},
    {kEncodingMacChineseSimplified, "x-mac-chinesesimp x-mac-simp-chinese"},
    {kEncodingMacCentralEurope, "x-mac-ce x-mac-centraleurroman x-mac-centraleurope"},
    {kEncodingMacTurkish, "x-mac-turkish"},
    {kEncodingMacCroatian, "x-mac-croatian"},
    {kEncodingMacIcelandic, "x-mac-icelandic"},
    {kEncodingMacRomanian, "x-mac-romanian"},

    {NSShiftJISStringEncoding, "shift_jis shift-jis sjis x-sjis ms_kanji csshiftjis windows-31j cswindows31j "
                               "windows-932 cp932 ms932"},
    {NSJapaneseEUCStringEncoding, "euc-jp eucjp x-euc-jp x-euc cseucpkdfmtjapanese "
                                  "extended_unix_code_packed_format_for_japanese"},
    {NSISO2022JPStringEncoding, "iso-2022-jp csiso2022jp iso-2022-jp-1 iso-2022-jp-ms cp50220 cscp50220"},
    {kEncodingEUCCN,
     "gb2312 gb_2312 gb_2312-80 gb2312-80 csgb2312 iso-ir-58 chinese csiso58gb231280 euc-cn x-euc-cn"},
    {kEncodingGBK, "gbk x-gbk csgbk"},
    {kEncodingDOS936, "cp936 ms936 windows-936"},
    {kEncodingGB18030, "gb18030 csgb18030"},
    {kEncodingHZ, "hz-gb-2312"},
    {kEncodingBig5, "big5 big-5 cn-big5 x-x-big5 csbig5"},
    {kEncodingBig5HKSCS, "big5-hkscs big5hkscs csbig5hkscs"},
    {kEncodingDOS950, "cp950 ms950 windows-950"},
    {kEncodingEUCKR, "euc-kr euckr x-euc-kr cseuckr"},
    {kEncodingDOS949,
     "ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 korean iso-ir-149 csksc56011987 windows-949 "
     "cp949 ms949 uhc"},
    {kEncodingISO2022KR, "iso-2022-kr csiso2022kr"},
    {kEncodingJohab, "johab x-johab cp1361 ms1361"},
};

constexpr size_t kNameCount = [] {
    size_t count = 0;
    for (const Names& names : kNames)
        count += 1 + size_t(std::count(names.list.begin(), names.list.end(), ' '));
    return count;
}();

struct Name {
    std::string_view name;
    NSStringEncoding encoding;
};

constexpr bool operator<(const Name& a, const Name& b) { return a.name < b.name; }

constexpr std::array<Name, kNameCount> kSortedNames = [] {
    std::array<Name, kNameCount> sorted{};
    size_t count = 0;
    for (const Names& names : kNames) {
        size_t start = 0;
        for (size_t end = 0; end != std::string_view::npos; start = end + 1) {
            end = names.list.find(' ', start);
            sorted[count++] = {names.list.substr(start, end - start), names.encoding};
        }
    }
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}();

constexpr size_t kLongestName =
    std::max_element(kSortedNames.begin(), kSortedNames.end(), [](const Name& a, const Name& b) {
        return a.name.size() < b.name.size();
    })->name.size();

static_assert(std::adjacent_find(kSortedNames.begin(), kSortedNames.end(), [](const Name& a, const Name& b) {
                  return a.name == b.name;
              }) == kSortedNames.end());

} // namespace

NSStringEncoding encodingForIANAName(std::string_view name) {
    name = trimmed(name, isSpace);
    if (name.size() > kLongestName) return NSNoStringEncoding;
    std::array<char, kLongestName> lower;
    std::transform(name.begin(), name.end(), lower.begin(), lowered<char>);
    const std::string_view wanted(lower.data(), name.size());
    const auto* row =
        std::lower_bound(kSortedNames.begin(), kSortedNames.end(), Name{wanted, NSNoStringEncoding});
    return row != kSortedNames.end() && row->name == wanted ? row->encoding : NSNoStringEncoding;
}

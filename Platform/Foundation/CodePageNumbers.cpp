// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/EncodingNumbers.h"

#include <algorithm>
#include <iterator>

namespace {

struct CodePage {
    unsigned number;
    NSStringEncoding encoding;

    constexpr bool operator<(unsigned other) const { return number < other; }
};

constexpr CodePage kCodePages[] = {
    {42, NSSymbolStringEncoding},
    {437, kEncodingDOS437},
    {720, kEncodingDOS720},
    {737, kEncodingDOS737},
    {775, kEncodingDOS775},
    {819, NSISOLatin1StringEncoding},
    {850, kEncodingDOS850},
    {852, kEncodingDOS852},
    {855, kEncodingDOS855},
    {857, kEncodingDOS857},
    {858, kEncodingDOS858},
    {860, kEncodingDOS860},
    {861, kEncodingDOS861},
    {862, kEncodingDOS862},
    {863, kEncodingDOS863},
    {864, kEncodingDOS864},
    {865, kEncodingDOS865},
    {866, kEncodingDOS866},
    {869, kEncodingDOS869},
    {874, kEncodingDOS874},
    {932, NSShiftJISStringEncoding},
    {936, kEncodingDOS936},
    {949, kEncodingDOS949},
    {950, kEncodingDOS950},
    {951, kEncodingBig5HKSCS},
    {1200, NSUTF16LittleEndianStringEncoding},
    {1201, NSUTF16BigEndianStringEncoding},
    {1250, NSWindowsCP1250StringEncoding},
    {1251, NSWindowsCP1251StringEncoding},
    {1252, NSWindowsCP1252StringEncoding},
    {1253, NSWindowsCP1253StringEncoding},
    {1254, NSWindowsCP1254StringEncoding},
    {1255, kEncodingWindows1255},
    {1256, kEncodingWindows1256},
    {1257, kEncodingWindows1257},
    {1258, kEncodingWindows1258},
    {1361, kEncodingJohab},
    {10000, NSMacOSRomanStringEncoding},
    {10001, kEncodingMacJapanese},
    {10002, kEncodingMacChineseTraditional},
    {10003, kEncodingMacKorean},
    {10006, kEncodingMacGreek},
    {10007, kEncodingMacCyrillic},
    {10008, kEncodingMacChineseSimplified},
    {10010, kEncodingMacRomanian},
    {10017, kEncodingMacCyrillic}, // the Ukrainian script became part of the Cyrillic one
    {10029, kEncodingMacCentralEurope},
    {10079, kEncodingMacIcelandic},
    {10081, kEncodingMacTurkish},
    {10082, kEncodingMacCroatian},
    {12000, NSUTF32LittleEndianStringEncoding},
    {12001, NSUTF32BigEndianStringEncoding},
    {20127, NSASCIIStringEncoding},
    {20866, kEncodingKOI8R},
    {20932, NSJapaneseEUCStringEncoding},
    {20936, kEncodingEUCCN},
    {20949, kEncodingEUCKR},
    {21866, kEncodingKOI8U},
    {28591, NSISOLatin1StringEncoding},
    {28592, NSISOLatin2StringEncoding},
    {28593, kEncodingISOLatin3},
    {28594, kEncodingISOLatin4},
    {28595, kEncodingISOCyrillic},
    {28596, kEncodingISOArabic},
    {28597, kEncodingISOGreek},
    {28598, kEncodingISOHebrew},
    {28599, kEncodingISOLatin5},
    {28600, kEncodingISOLatin6},
    {28601, kEncodingISOThai},
    {28603, kEncodingISOLatin7},
    {28604, kEncodingISOLatin8},
    {28605, kEncodingISOLatin9},
    {28606, kEncodingISOLatin10},
    {38598, kEncodingISOHebrew},
    {50220, NSISO2022JPStringEncoding},
    {50221, NSISO2022JPStringEncoding},
    {50222, NSISO2022JPStringEncoding},
    {50225, kEncodingISO2022KR},
    {51932, NSJapaneseEUCStringEncoding},
    {51936, kEncodingEUCCN},
    {51949, kEncodingEUCKR},
    {52936, kEncodingHZ},
    {54936, kEncodingGB18030},
    {65001, NSUTF8StringEncoding},
};

static_assert(std::is_sorted(std::begin(kCodePages), std::end(kCodePages),
                             [](const CodePage& a, const CodePage& b) { return a.number < b.number; }));

} // namespace

NSStringEncoding encodingForCodePage(unsigned codePage) {
    const CodePage* row = std::lower_bound(std::begin(kCodePages), std::end(kCodePages), codePage);
    return row != std::end(kCodePages) && row->number == codePage ? row->encoding : NSNoStringEncoding;
}

unsigned codePageForFontCharset(int charset) {
    switch (charset) {
    case 0: return 1252;
    case 77: return 10000;
    case 78: return 10001;
    case 79: return 10003;
    case 80: return 10008;
    case 81: return 10002;
    case 83: return 10005;
    case 84: return 10004;
    case 85: return 10006;
    case 86: return 10081;
    case 87: return 10021;
    case 88: return 10029;
    case 89: return 10007;
    case 128: return 932;
    case 129: return 949;
    case 130: return 1361;
    case 134: return 936;
    case 136: return 950;
    case 161: return 1253;
    case 162: return 1254;
    case 163: return 1258;
    case 177:
    case 181: return 1255;
    case 178:
    case 179:
    case 180: return 1256;
    case 186: return 1257;
    case 204: return 1251;
    case 222: return 874;
    case 238: return 1250;
    case 254: return 437;
    case 255: return 850;
    default: return 0;
    }
}

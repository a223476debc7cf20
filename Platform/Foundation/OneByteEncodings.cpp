// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/OneByteEncodings.h"

#include "Platform/Foundation/CodePageTables.h"
#include "Platform/Foundation/EncodingNumbers.h"

#include <algorithm>
#include <iterator>

namespace {

// ASCII is read as ISO Latin 1: the platform accepts every byte of such text.
constexpr OneByteEncoding kOneByteEncodings[] = {
    {NSASCIIStringEncoding, kISO8859_1},
    {NSNEXTSTEPStringEncoding, kNEXTSTEP},
    {NSISOLatin1StringEncoding, kISO8859_1},
    {NSSymbolStringEncoding, kSymbol, kSymbolLower},
    {NSISOLatin2StringEncoding, kISO8859_2},
    {NSWindowsCP1251StringEncoding, kWindows1251},
    {NSWindowsCP1252StringEncoding, kWindows1252},
    {NSWindowsCP1253StringEncoding, kWindows1253},
    {NSWindowsCP1254StringEncoding, kWindows1254},
    {NSWindowsCP1250StringEncoding, kWindows1250},
    {NSMacOSRomanStringEncoding, kMacRoman},
    {kEncodingMacGreek, kMacGreek},
    {kEncodingMacCyrillic, kMacCyrillic},
    {kEncodingMacCentralEurope, kMacCentralEurope},
    {kEncodingMacTurkish, kMacTurkish},
    {kEncodingMacCroatian, kMacCroatian},
    {kEncodingMacIcelandic, kMacIcelandic},
    {kEncodingMacRomanian, kMacRomanian},
    {kEncodingISOLatin3, kISO8859_3},
    {kEncodingISOLatin4, kISO8859_4},
    {kEncodingISOCyrillic, kISO8859_5},
    {kEncodingISOArabic, kISO8859_6},
    {kEncodingISOGreek, kISO8859_7},
    {kEncodingISOHebrew, kISO8859_8},
    {kEncodingISOLatin5, kISO8859_9},
    {kEncodingISOLatin6, kISO8859_10},
    {kEncodingISOThai, kISO8859_11},
    {kEncodingISOLatin7, kISO8859_13},
    {kEncodingISOLatin8, kISO8859_14},
    {kEncodingISOLatin9, kISO8859_15},
    {kEncodingISOLatin10, kISO8859_16},
    {kEncodingDOS437, kDOS437},
    {kEncodingDOS737, kDOS737},
    {kEncodingDOS775, kDOS775},
    {kEncodingDOS850, kDOS850},
    {kEncodingDOS852, kDOS852},
    {kEncodingDOS855, kDOS855},
    {kEncodingDOS857, kDOS857},
    {kEncodingDOS860, kDOS860},
    {kEncodingDOS861, kDOS861},
    {kEncodingDOS862, kDOS862},
    {kEncodingDOS863, kDOS863},
    {kEncodingDOS864, kDOS864, kDOS864Lower},
    {kEncodingDOS865, kDOS865},
    {kEncodingDOS866, kDOS866},
    {kEncodingDOS869, kDOS869},
    {kEncodingDOS874, kDOS874},
    {kEncodingDOS858, kDOS858},
    {kEncodingDOS720, kDOS720},
    {kEncodingWindows1255, kWindows1255},
    {kEncodingWindows1256, kWindows1256},
    {kEncodingWindows1257, kWindows1257},
    {kEncodingWindows1258, kWindows1258},
    {kEncodingKOI8R, kKOI8R},
    {kEncodingKOI8U, kKOI8U},
};

static_assert(std::is_sorted(std::begin(kOneByteEncodings), std::end(kOneByteEncodings),
                             [](const auto& a, const auto& b) { return a.number < b.number; }));

} // namespace

bool OneByteEncoding::fillsWithControls() const {
    return (number >= NSWindowsCP1251StringEncoding && number <= NSWindowsCP1250StringEncoding) ||
           (number >= kEncodingWindows1255 && number <= kEncodingWindows1258);
}

const OneByteEncoding* oneByteEncoding(NSStringEncoding encoding) {
    const auto* row = std::lower_bound(std::begin(kOneByteEncodings), std::end(kOneByteEncodings), encoding);
    return row != std::end(kOneByteEncodings) && row->number == encoding ? row : nullptr;
}

// SPDX-License-Identifier: Apache-2.0
//
// The units of one-byte encodings, half a page each: of bytes 80 to FF, or, where an encoding differs from
// ASCII, of bytes 00 to 7F. Bytes that an encoding does not define are U+FFFD; see WindowsPageTables.cpp for
// those pages' own rule.
#pragma once

using HalfPage = char16_t[129]; // the terminating zero is never looked at

extern const HalfPage kWindows1250, kWindows1251, kWindows1252, kWindows1253, kWindows1254, kWindows1255,
    kWindows1256, kWindows1257, kWindows1258;

extern const HalfPage kDOS437, kDOS720, kDOS737, kDOS775, kDOS850, kDOS852, kDOS855, kDOS857, kDOS858,
    kDOS860, kDOS861, kDOS862, kDOS863, kDOS864Lower, kDOS864, kDOS865, kDOS866, kDOS869, kDOS874;

extern const HalfPage kISO8859_1, kISO8859_2, kISO8859_3, kISO8859_4, kISO8859_5, kISO8859_6, kISO8859_7,
    kISO8859_8, kISO8859_9, kISO8859_10, kISO8859_11, kISO8859_13, kISO8859_14, kISO8859_15, kISO8859_16;

extern const HalfPage kMacRoman, kMacGreek, kMacCyrillic, kMacCentralEurope, kMacTurkish, kMacCroatian,
    kMacIcelandic, kMacRomanian;

extern const HalfPage kKOI8R, kKOI8U, kNEXTSTEP, kSymbolLower, kSymbol;

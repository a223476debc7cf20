// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/OldModifierCodes.h"

#include <algorithm>
#include <iterator>

namespace Word {

namespace {

struct LengthRange {
    uint8_t last; // the range starts behind that of the entry before
    uint8_t length;
};

constexpr uint8_t B = OldModifier::kLengthByte, W = OldModifier::kLengthWord, T = OldModifier::kTabs,
                  U = OldModifier::kUnknown;

constexpr LengthRange kLengths[] = {
    {1, U},   {2, 2},   {3, B},   {11, 1},  {12, B},   {14, 1},  {15, B},  {19, 2},  {20, 4},  {22, 2},
    {23, T},  {25, 1},  {28, 2},  {29, 1},  {36, 2},   {37, 1},  {43, 2},  {44, 1},  {49, 2},  {51, 1},
    {52, B},  {58, 1},  {60, 2},  {63, U},  {64, B},   {67, 1},  {68, B},  {69, 2},  {70, 4},  {71, 1},
    {72, 2},  {73, 3},  {74, B},  {75, 1},  {76, U},   {77, 1},  {78, U},  {79, 1},  {80, 2},  {82, B},
    {83, 0},  {84, U},  {92, 1},  {93, 2},  {94, 1},   {95, 3},  {97, 2},  {98, 1},  {99, 2},  {100, 1},
    {101, 2}, {102, 1}, {103, B}, {104, 1}, {106, B},  {107, 2}, {108, B}, {110, 2}, {119, 1}, {120, B},
    {124, 2}, {130, U}, {132, 1}, {133, B}, {135, U},  {137, 3}, {139, 1}, {141, 2}, {143, 1}, {145, 2},
    {147, 1}, {149, 2}, {153, 1}, {157, 2}, {159, 1},  {161, 2}, {162, 1}, {163, U}, {171, 2}, {178, U},
    {179, 1}, {180, U}, {184, 2}, {186, 1}, {187, 12}, {188, W}, {189, 2}, {190, W}, {191, B}, {192, 4},
    {193, 5}, {194, 4}, {195, 2}, {196, 4}, {198, 2},  {199, 5}, {200, 4}, {255, U},
};

} // namespace

OldModifier oldModifier(uint8_t code) {
    const LengthRange* range =
        std::find_if(std::begin(kLengths), std::end(kLengths),
                     [&](const LengthRange& candidate) { return code <= candidate.last; });
    uint8_t length = range->length;
    switch (code) {
    case 9: return {0x2407, length}; // begins a page
    case 12: return {kOldNumbering, length};
    case 13: return {kOldNumberingLevel, length};
    case 24: return {0x2416, length};  // in a table
    case 25: return {0x2417, length};  // ends a row
    case 65: return {0x0800, length};  // deleted
    case 74: return {0x6A09, length};  // symbol
    case 80: return {0x4A30, length};  // character style
    case 83: return {0x2A33, length};  // plain
    case 92: return {0x083C, length};  // hidden
    case 93: return {0x4A4F, length};  // font
    case 164: return {0xB01F, length}; // page width
    case 165: return {0xB020, length}; // page height
    case 166: return {0xB021, length}; // left margin
    case 167: return {0xB022, length}; // right margin
    case 168: return {0x9023, length}; // top margin
    case 169: return {0x9024, length}; // bottom margin
    default: return {0, length};
    }
}

} // namespace Word

// SPDX-License-Identifier: Apache-2.0
//
// How numbers of list items are written.
#pragma once

#include <cstdint>
#include <string>

namespace Word {

// The numbers by which documents name the formats; all others are written in digits.
namespace NumberFormat {
enum : uint8_t {
    decimal = 0,
    upperRoman = 1,
    lowerRoman = 2,
    upperLetter = 3,
    lowerLetter = 4,
    ordinal = 5, // 1st
    leadingZero = 22,
    bullet = 23,
    none = 255,
};
}

void appendNumber(std::u16string& out, uint32_t number, uint8_t format);

} // namespace Word

// SPDX-License-Identifier: Apache-2.0
//
// The numbers by which documents name the ways to write numbers.
#pragma once

#include "Platform/AppKit/NumberFormat.h"

namespace Word {

namespace NumberCode {
enum : uint8_t {
    decimal = 0,
    upperRoman = 1,
    lowerRoman = 2,
    upperLetter = 3,
    lowerLetter = 4,
    ordinal = 5,
    leadingZero = 22,
    bullet = 23,
    none = 255,
};
}

// All others are decimal.
NumberFormat numberFormatOf(uint8_t code);

} // namespace Word

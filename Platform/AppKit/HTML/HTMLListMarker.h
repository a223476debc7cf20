// SPDX-License-Identifier: Apache-2.0
//
// The kinds of list marker and their texts.
#pragma once

#include <cstdint>
#include <string>

enum class HTMLListStyle : uint8_t {
    none,
    disc,
    circle,
    square,
    decimal,
    lowerAlpha,
    upperAlpha,
    lowerRoman,
    upperRoman,
};

// The marker of the item with this number: "•", "7", "g", "vii" ... Numbers that letters or Roman numerals
// cannot write are written in decimal digits.
std::u16string listMarker(HTMLListStyle style, int64_t number);

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/NumberCode.h"

namespace Word {

NumberFormat numberFormatOf(uint8_t code) {
    using Kind = NumberFormat::Kind;
    switch (code) {
    case NumberCode::upperRoman: return {Kind::upperRoman};
    case NumberCode::lowerRoman: return {Kind::lowerRoman};
    case NumberCode::upperLetter: return {Kind::series, kUpperLatin};
    case NumberCode::lowerLetter: return {Kind::series, kLowerLatin};
    case NumberCode::ordinal: return {Kind::ordinal};
    case NumberCode::leadingZero: return {Kind::padded};
    case NumberCode::bullet:
    case NumberCode::none: return {Kind::none};
    default: return {};
    }
}

} // namespace Word

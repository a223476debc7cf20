// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLListMarker.h"

#include "Platform/AppKit/NumberFormat.h"

namespace {

NumberFormat numberFormat(HTMLListStyle style) {
    using Kind = NumberFormat::Kind;
    switch (style) {
    case HTMLListStyle::lowerAlpha: return {Kind::lowerLetters};
    case HTMLListStyle::upperAlpha: return {Kind::upperLetters};
    case HTMLListStyle::lowerRoman: return {Kind::lowerRoman};
    case HTMLListStyle::upperRoman: return {Kind::upperRoman};
    default: return {};
    }
}

} // namespace

std::u16string listMarker(HTMLListStyle style, int64_t number) {
    switch (style) {
    case HTMLListStyle::none: return {};
    case HTMLListStyle::disc: return u"\u2022";
    case HTMLListStyle::circle: return u"\u25E6";
    case HTMLListStyle::square: return u"\u25AA";
    default: break;
    }
    std::u16string marker;
    appendNumber(marker, number, numberFormat(style));
    return marker;
}

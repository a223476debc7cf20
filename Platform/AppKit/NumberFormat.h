// SPDX-License-Identifier: Apache-2.0
//
// The ways to write the number of a list item: digits and letters of several scripts, Roman numerals, words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct NumberFormat {
    enum class Kind : uint8_t {
        none, // nothing at all
        decimal,
        padded,     // 01 to 09, 10
        ordinal,    // 1st
        lowerRoman, // i
        upperRoman,
        lowerLetters, // a to z, aa, ab
        upperLetters,
        cardinalWords, // Forty-two
        ordinalWords,  // Forty-second
        digits,        // decimal, in the ten digits of `symbols`
        series,        // each of `symbols`, then each doubled, then each tripled
        table,         // each of `symbols`
        counting,      // Chinese numerals, in the ten digits of `symbols`
    };

    Kind kind = Kind::decimal;
    std::u16string_view symbols = {};

    bool operator==(const NumberFormat&) const = default;
};

inline constexpr std::u16string_view kLowerLatin = u"abcdefghijklmnopqrstuvwxyz";
inline constexpr std::u16string_view kUpperLatin = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ";

// A number that the format cannot write comes in decimal digits: zero and negative ones in letters, Roman
// numerals past 3999, symbols more than thirty times over, words past ninety-nine.
void appendNumber(std::u16string& out, int64_t number, NumberFormat format);

// SPDX-License-Identifier: Apache-2.0
//
// Fonts whose characters are signs of their own, not those that the codes mean elsewhere. Documents hold such
// a sign as its code in the font, often moved to U+F000 to U+F0FF.
#pragma once

#include <cstdint>
#include <string_view>

enum class SymbolFont { none, symbol, wingdings, other };

// By its name, in any case.
SymbolFont symbolFontNamed(std::u16string_view name);

// The character for a code of a symbol font; U+F000 plus the code when no character is known for it.
char16_t characterOf(SymbolFont font, uint8_t code);

// True for the private-use characters in which codes of symbol fonts stand in a text.
constexpr bool isSymbolCode(char16_t unit) { return (unit & 0xFF00) == 0xF000; }

// The character that a unit of a text set in the font shows, where codes stand as they are or in the
// private-use area; the unit itself when no character is known for it.
char16_t signOf(SymbolFont font, char16_t unit);

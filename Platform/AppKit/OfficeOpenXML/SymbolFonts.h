// SPDX-License-Identifier: Apache-2.0
//
// Symbol fonts show pictures in the places of letters; documents name them by the font and a code of their
// own.
#pragma once

#include <string>
#include <string_view>

namespace OfficeOpenXML {

// True for the fonts whose codes are known here, by their names in any case.
bool isSymbolFont(std::string_view font);

// The character that a symbol font shows for a code, 0x20 to 0xFF or the same from U+F000 on. What is not
// known, or of another font, stays the code itself.
char16_t symbolCharacter(std::string_view font, char16_t code);

} // namespace OfficeOpenXML

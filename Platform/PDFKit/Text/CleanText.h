// SPDX-License-Identifier: Apache-2.0
//
// What a font says that a glyph means, fit for text.
#pragma once

#include <string>
#include <string_view>

// Without U+0000, controls as blanks, ligatures and Arabic shapes in their letters, lone surrogates as
// U+FFFD. The result is `text` itself where nothing had to change, else it lies in `scratch`. Long texts are
// cut off.
std::u16string_view cleanText(std::u16string_view text, std::u16string& scratch);

// SPDX-License-Identifier: Apache-2.0
//
// The characters that a font's program draws its glyphs for.
#pragma once

#include <mupdf/fitz.h>

#include <vector>

// By glyph, of the basic plane and not private; 0 where there is none. Empty for a font without such a table.
std::vector<char16_t> charactersOfGlyphs(fz_context* context, fz_font* font);

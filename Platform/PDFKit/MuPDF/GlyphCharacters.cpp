// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/GlyphCharacters.h"

#include <ft2build.h>
#include FT_FREETYPE_H

std::vector<char16_t> charactersOfGlyphs(fz_context* context, fz_font* font) {
    std::vector<char16_t> characters;
    auto face = static_cast<FT_Face>(fz_font_ft_face(context, font));
    if (!face || face->num_glyphs <= 0 || face->num_glyphs > 0x10000) return characters;
    if (FT_Select_Charmap(face, FT_ENCODING_UNICODE) != 0) return characters;
    characters.resize(size_t(face->num_glyphs));
    FT_UInt glyph = 0;
    for (FT_ULong c = FT_Get_First_Char(face, &glyph); glyph != 0; c = FT_Get_Next_Char(face, c, &glyph)) {
        bool isPrivate = c >= 0xE000 && c <= 0xF8FF;
        if (c > 0xFFFF) break;
        if (!isPrivate && glyph < characters.size() && characters[glyph] == 0)
            characters[glyph] = char16_t(c);
    }
    return characters;
}

// SPDX-License-Identifier: Apache-2.0
//
// Glyphs anywhere on a page as lines of text. A glyph is ten bytes: two units of text, the steps that the pen
// makes along and across the line, the width, the size of the font, the spacing, and a byte of choices.
#include "Platform/Foundation/UnicodeText.h"
#include "Platform/PDFKit/Text/CharacterClasses.h"
#include "Platform/PDFKit/Text/LineAssembler.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

namespace {

constexpr size_t kGlyphSize = 10;

struct Pen {
    double x = 0, y = 0, ux = 1, uy = 0;

    // The choices: bit 0 a second unit, bit 1 a new place, bit 2 continues, bit 3 stretched, bits 4 to 6 the
    // direction in eighths of a turn (when a new place is), bit 7 a number that is none.
    Glyph glyph(const uint8_t* bytes, std::u16string& text) {
        const uint8_t choices = bytes[9];
        text = {char16_t(bytes[0] << 8 | bytes[1])};
        if (choices & 1) text += char16_t(bytes[2] << 8 | bytes[3]);
        if (choices & 2) {
            const double angle = (choices >> 4 & 7) * std::acos(-1.0) / 4;
            ux = std::cos(angle);
            uy = std::sin(angle);
        }
        const double along = int8_t(bytes[4]), across = int8_t(bytes[5]);
        x += along * ux - across * uy;
        y += along * uy + across * ux;
        if (choices & 0x80) x = std::numeric_limits<double>::quiet_NaN();
        Glyph glyph{.text = text, .x = x, .y = y, .ux = ux, .uy = uy};
        glyph.length = bytes[6] / 8.0;
        glyph.em = bytes[7] / 4.0;
        glyph.spacing = int8_t(bytes[8]) / 8.0;
        glyph.stretch = choices & 8 ? 0.5 : 1;
        glyph.continues = choices & 4;
        x += glyph.length * ux;
        y += glyph.length * uy;
        return glyph;
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::u16string page, text;
    LineAssembler assembler(page);
    Pen pen;
    size_t glyphs = 0;
    for (; size >= kGlyphSize; data += kGlyphSize, size -= kGlyphSize, ++glyphs)
        assembler.addGlyph(pen.glyph(data, text));
    assembler.finish();
    // A shape or a ligature is up to four letters; each may have a blank and a line's end behind it.
    if (page.size() > glyphs * 2 * 6) std::abort();
    char16_t last = u'\n';
    for (char16_t c : page) {
        const bool isWhite = c == u' ' || c == u'\n', wasWhite = last == u' ' || last == u'\n';
        if (c == 0 || (isWhite && wasWhite) || (c != u' ' && isBlank(c))) std::abort();
        last = c;
    }
    if (!page.empty() && (last == u' ' || last == u'\n')) std::abort();
    return 0;
}

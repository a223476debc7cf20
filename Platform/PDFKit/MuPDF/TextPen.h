// SPDX-License-Identifier: Apache-2.0
//
// The text state of a page and the pen that follows it: where the glyphs of a string stand.
#pragma once

#include "Platform/PDFKit/MuPDF/FontText.h"
#include "Platform/PDFKit/Text/Glyph.h"

#include <mupdf/fitz.h>

#include <memory>

// What q and Q save and bring back.
struct GraphicsState {
    fz_matrix matrix = fz_identity;
    std::shared_ptr<FontText> font;
    double size = 0, characterSpacing = 0, wordSpacing = 0, scale = 1, leading = 0, rise = 0;
};

class TextPen {
public:
    GraphicsState state;

    void beginText();                            // BT
    void moveLine(double x, double y);           // Td
    void setMatrix(const fz_matrix& textMatrix); // Tm
    void nextLine() { moveLine(0, -state.leading); }

    // Goes back by thousandths of an em, as the numbers in TJ have it.
    void goBack(double thousandths);

    // Calls `use(glyph)` for each code of a string, until it answers false.
    template <class Use>
    void show(const unsigned char* bytes, size_t count, const Use& use) {
        if (!state.font) return;
        Stroke stroke = begin();
        for (const unsigned char* end = bytes + count; bytes < end;) {
            const FontCode& code = state.font->codeAt(bytes, end);
            bytes += code.bytes;
            if (!code.isKnown) continue;
            stroke.glyph.text = code.text();
            stroke.glyph.length = code.width * stroke.glyphUnit;
            if (stroke.glyph.length < 0) stroke.glyph.length = -stroke.glyph.length;
            if (!use(stroke.glyph)) break;
            stroke.move(code.width * stroke.em + state.characterSpacing +
                        (code.isSpace ? state.wordSpacing : 0));
            stroke.glyph.continues = true;
        }
        end(stroke);
    }

private:
    // A string on its way. Text space is the space of the text matrix before the horizontal scale.
    struct Stroke {
        Glyph glyph;
        double em;           // in text space
        double glyphUnit;    // one em in the page's space
        double stepX, stepY; // one unit of text space in the page's space
        double moved = 0;    // in text space

        void move(double distance) {
            moved += distance;
            glyph.x += distance * stepX;
            glyph.y += distance * stepY;
        }
    };

    Stroke begin() const;
    void end(const Stroke& stroke);
    void advance(double distance);

    fz_matrix lineMatrix_ = fz_identity, matrix_ = fz_identity;
    bool continues_ = false;
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/TextPen.h"

#include <algorithm>
#include <cmath>

void TextPen::beginText() { setMatrix(fz_identity); }

void TextPen::moveLine(double x, double y) { setMatrix(fz_pre_translate(lineMatrix_, float(x), float(y))); }

void TextPen::setMatrix(const fz_matrix& textMatrix) {
    matrix_ = lineMatrix_ = textMatrix;
    continues_ = false;
}

void TextPen::goBack(double thousandths) { advance(-thousandths * state.size / 1000); }

TextPen::Stroke TextPen::begin() const {
    fz_matrix m = fz_concat(matrix_, state.matrix);
    double along = std::hypot(m.a, m.b), across = std::hypot(m.c, m.d);
    Stroke stroke;
    stroke.em = state.size;
    Glyph& glyph = stroke.glyph;
    glyph.x = m.e + state.rise * m.c;
    glyph.y = m.f + state.rise * m.d;
    glyph.em = std::abs(state.size) * across * state.font->heightInEms();
    glyph.continues = continues_;
    if (state.font->isVertical()) {
        stroke.stepX = m.c;
        stroke.stepY = m.d;
        stroke.glyphUnit = state.size * across;
        double sign = state.size < 0 ? 1 : -1;
        if (across > 0) glyph.ux = sign * m.c / across, glyph.uy = sign * m.d / across;
        glyph.spacing = std::max(0.0, -state.characterSpacing * across);
    } else {
        stroke.stepX = state.scale * m.a;
        stroke.stepY = state.scale * m.b;
        stroke.glyphUnit = state.size * state.scale * along;
        double sign = state.size * state.scale < 0 ? -1 : 1;
        if (along > 0) glyph.ux = sign * m.a / along, glyph.uy = sign * m.b / along;
        glyph.spacing = std::max(0.0, state.characterSpacing * state.scale * along);
        if (across > 0) glyph.stretch = std::abs(state.scale) * along / across;
    }
    return stroke;
}

void TextPen::end(const Stroke& stroke) {
    advance(stroke.moved);
    continues_ = stroke.glyph.continues;
}

void TextPen::advance(double distance) {
    bool vertical = state.font && state.font->isVertical();
    matrix_ = vertical ? fz_pre_translate(matrix_, 0, float(distance))
                       : fz_pre_translate(matrix_, float(distance * state.scale), 0);
}

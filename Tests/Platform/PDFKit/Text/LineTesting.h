// SPDX-License-Identifier: Apache-2.0
//
// Puts glyphs on a page as a writer would, for the tests of the line assembler. The em is 10 units and every
// glyph as wide as half of it, unless a test says otherwise.
#pragma once

#include "Platform/PDFKit/Text/LineAssembler.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

class Page {
public:
    double em = 10, width = 5; // of the glyphs to come
    double spacing = 0;        // between characters
    double stretch = 1;
    double ux = 1, uy = 0;

    Page& at(double x, double y) {
        x_ = x, y_ = y, continues_ = false;
        return *this;
    }
    // Moves on in the direction of writing.
    Page& gap(double length) {
        x_ += ux * length, y_ += uy * length;
        return *this;
    }
    // One glyph for each unit.
    Page& show(std::u16string_view text) {
        for (size_t i = 0; i < text.size(); ++i) glyph(text.substr(i, 1));
        return *this;
    }
    // One glyph that says all of this.
    Page& glyph(std::u16string_view text) {
        lines_.addGlyph({text, x_, y_, ux, uy, width, em, spacing, stretch, continues_});
        continues_ = true;
        return gap(width + spacing);
    }

    std::u16string text() {
        lines_.finish();
        return text_;
    }

private:
    std::u16string text_;
    LineAssembler lines_{text_};
    double x_ = 0, y_ = 0;
    bool continues_ = false;
};

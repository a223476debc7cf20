// SPDX-License-Identifier: Apache-2.0
//
// Makes lines of text of the glyphs of a page, in the order in which the page draws them. A glyph goes on the
// line of the one before it while it follows it in the direction of writing; blanks stand where glyphs say so
// or where gaps are wide. There is no sorting and no guessing at columns: writers draw text in the order of
// reading. Only lines with letters that are written from right to left are put in order.
#pragma once

#include "Platform/PDFKit/Text/DrawnTwice.h"
#include "Platform/PDFKit/Text/Glyph.h"
#include "Platform/PDFKit/Text/TextLine.h"

#include <string>

class LineAssembler {
public:
    // Appends to `out`, which outlives the assembler.
    explicit LineAssembler(std::u16string& out) : out_(out), start_(out.size()) {}

    void addGlyph(const Glyph& glyph);

    // Ends the page: nothing but text stands at its end. To be called once, after the last glyph.
    void finish();

private:
    bool belongsToLine(const Glyph& glyph, double gap, bool rightToLeft) const;
    void place(const Glyph& glyph, double gap, bool rightToLeft);
    void endLine();

    std::u16string& out_;
    const size_t start_;
    TextLine line_;
    DrawnTwice drawnTwice_;
    std::u16string cleaned_;

    double originX_ = 0, originY_ = 0, lineUx_ = 1, lineUy_ = 0; // of the line's first glyph
    double lineStart_ = 0, lineEnd_ = 0;                         // extent along the line
    double penX_ = 0, penY_ = 0, ux_ = 1, uy_ = 0, em_ = 0;      // of the last glyph
};

// SPDX-License-Identifier: Apache-2.0
//
// The glyphs of one line while it grows.
#pragma once

#include "Platform/PDFKit/Text/Glyph.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A glyph on its line. Positions are along the line, from its first glyph on.
struct PlacedGlyph {
    double start, end;
    double gap; // from the end of the glyph before it, along that one's direction
    float em, spacing, stretch;
    uint32_t textStart; // in the line's text
    uint16_t textLength;
    char32_t character; // the first one
    bool continues;

    bool isBlank() const;
    bool isFullWidth() const;
    // True when the gap before this glyph stands for a blank.
    bool followsBlank() const;
};

struct TextLine {
    std::vector<PlacedGlyph> glyphs;
    std::u16string text;        // of all glyphs, in the order in which they came
    bool isRightToLeft = false; // there is a letter of a script that is written so
    bool isSpaced = false;      // there may be letters that are spaced out

    bool isEmpty() const { return glyphs.empty(); }
    void clear();

    std::u16string_view textOf(const PlacedGlyph& glyph) const {
        return std::u16string_view(text).substr(glyph.textStart, glyph.textLength);
    }
};

// Takes the spacing between letters out of the gaps where it is the same through a whole run, so that
// s p a c e d words stay words. Spacing that justifies a line is left alone: there the gaps differ.
void closeLetterSpacing(TextLine& line);

// Appends a line in the order of its glyphs, blanks where glyphs or gaps stand for them, none at its ends and
// never two. True when anything was appended.
bool appendLine(const TextLine& line, std::u16string& out);

// The same for a line with letters that are written from right to left: in the order of reading.
bool appendRightToLeftLine(const TextLine& line, std::u16string& out);

// SPDX-License-Identifier: Apache-2.0
//
// A glyph as the line assembler takes it: what it says, where it stands and how it was placed. All lengths
// are in one common space, whose unit and orientation do not matter.
#pragma once

#include <string_view>

struct Glyph {
    std::u16string_view text; // empty when nobody knows what it says
    double x = 0, y = 0;      // where it starts, on the baseline
    double ux = 1, uy = 0;    // the direction of writing, a unit vector
    double length = 0;        // its own width in that direction, without the spacing that follows it
    double em = 0;            // the size of the font
    double spacing = 0;       // spacing between characters, when positive
    double stretch = 1;       // the scale along the line over that across it
    bool continues = false;   // nothing but widths and spacing moved the pen since the glyph before
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/Text/TextLine.h"

#include "Platform/PDFKit/Text/CharacterClasses.h"
#include "Platform/PDFKit/Text/LineWriter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kBlankGap = 0.15;         // ems
constexpr double kFullWidthBlankGap = 0.6; // ems
constexpr double kLeastSpacing = 0.8 * kBlankGap;

bool sameSpacing(const PlacedGlyph& a, const PlacedGlyph& b) {
    return std::abs(a.spacing - b.spacing) <= 0.05 * a.spacing;
}

// True when the gap between two glyphs may be nothing but spacing between letters.
bool isSpacedPair(const PlacedGlyph& before, const PlacedGlyph& glyph) {
    return glyph.continues && glyph.spacing > kLeastSpacing * glyph.em &&
           std::abs(before.spacing - glyph.spacing) <= 0.02 * glyph.em;
}

// Closes the gaps in front of the glyphs from `first` to before `last`.
void closeRun(std::vector<PlacedGlyph>& glyphs, size_t first, size_t last) {
    if (last - first < 2) return;
    size_t pairs = 0, wide = 0;
    for (size_t i = first; i < last; ++i) {
        if (glyphs[i].isBlank() || glyphs[i - 1].isBlank()) continue;
        ++pairs;
        if (glyphs[i].gap > 0.75 * glyphs[i].spacing) ++wide;
    }
    if (wide * 10 < pairs * 9) return;
    for (size_t i = first; i < last; ++i) glyphs[i].gap -= glyphs[i].spacing;
}

} // namespace

bool PlacedGlyph::isBlank() const { return ::isBlank(character); }
bool PlacedGlyph::isFullWidth() const { return ::isFullWidth(character); }

bool PlacedGlyph::followsBlank() const {
    double least = isFullWidth() ? kFullWidthBlankGap : kBlankGap * std::min(1.0, double(stretch));
    return gap > least * em;
}

void TextLine::clear() {
    glyphs.clear();
    text.clear();
    isRightToLeft = isSpaced = false;
}

void closeLetterSpacing(TextLine& line) {
    std::vector<PlacedGlyph>& glyphs = line.glyphs;
    for (size_t i = 1; i < glyphs.size();) {
        size_t first = i;
        while (i < glyphs.size() && isSpacedPair(glyphs[i - 1], glyphs[i]) &&
               sameSpacing(glyphs[first], glyphs[i]))
            ++i;
        closeRun(glyphs, first, i);
        if (i == first) ++i;
    }
}

bool appendLine(const TextLine& line, std::u16string& out) {
    LineWriter writer(out);
    for (const PlacedGlyph& glyph : line.glyphs) {
        if (glyph.followsBlank()) writer.addBlank();
        writer.add(line.textOf(glyph));
    }
    return writer.any();
}

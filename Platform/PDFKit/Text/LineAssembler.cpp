// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/Text/LineAssembler.h"

#include "Platform/Foundation/UnicodeText.h"
#include "Platform/PDFKit/Text/CharacterClasses.h"
#include "Platform/PDFKit/Text/CleanText.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastCosine = 0.98; // 11 degrees: more is another direction
constexpr double kMostDrift = 0.5;    // ems across the line; superscripts stay below it
constexpr double kMostBackward = 0.6; // ems
constexpr double kNearLine = 3;       // ems
constexpr size_t kMostLineGlyphs = 1 << 20;
constexpr float kNoticeableSpacing = 0.1F; // ems

char32_t firstCharacter(std::u16string_view text) {
    if (text.size() > 1 && isHighSurrogate(text[0]) && isLowSurrogate(text[1]))
        return joinSurrogates(text[0], text[1]);
    return text[0];
}

} // namespace

void LineAssembler::addGlyph(const Glyph& glyph) {
    std::u16string_view text = cleanText(glyph.text, cleaned_);
    if (text.empty()) return; // the pen stays, and the gap becomes a blank
    char32_t character = firstCharacter(text);
    if (!isBlank(character) && drawnTwice_.isRepeated(glyph, text)) return;

    Glyph known = glyph;
    known.text = text;
    bool rightToLeft = isRightToLeft(character);
    double gap = (glyph.x - penX_) * ux_ + (glyph.y - penY_) * uy_;
    if (!line_.isEmpty() && !belongsToLine(known, gap, rightToLeft)) endLine();
    place(known, line_.isEmpty() ? 0 : gap, rightToLeft);
}

bool LineAssembler::belongsToLine(const Glyph& glyph, double gap, bool rightToLeft) const {
    double em = std::max(em_, glyph.em);
    if (ux_ * glyph.ux + uy_ * glyph.uy <= kLeastCosine) return false;
    double drift = (glyph.y - penY_) * ux_ - (glyph.x - penX_) * uy_;
    if (!(std::abs(drift) < kMostDrift * em)) return false;
    if (gap >= -kMostBackward * em) return true;
    if (!rightToLeft && !line_.isRightToLeft) return false;
    double start = (glyph.x - originX_) * lineUx_ + (glyph.y - originY_) * lineUy_;
    return start + glyph.length >= lineStart_ - kNearLine * em && start <= lineEnd_ + kNearLine * em;
}

void LineAssembler::place(const Glyph& glyph, double gap, bool rightToLeft) {
    if (line_.glyphs.size() >= kMostLineGlyphs) endLine();
    if (line_.isEmpty()) {
        originX_ = glyph.x;
        originY_ = glyph.y;
        lineUx_ = glyph.ux;
        lineUy_ = glyph.uy;
        lineStart_ = lineEnd_ = 0;
    }
    double start = (glyph.x - originX_) * lineUx_ + (glyph.y - originY_) * lineUy_;
    double end = start + glyph.length;
    lineStart_ = std::min(lineStart_, start);
    lineEnd_ = std::max(lineEnd_, end);
    line_.isRightToLeft |= rightToLeft;
    line_.isSpaced |= glyph.spacing > kNoticeableSpacing * glyph.em;
    line_.glyphs.push_back({start, end, gap, float(glyph.em), float(glyph.spacing), float(glyph.stretch),
                            uint32_t(line_.text.size()), uint16_t(glyph.text.size()),
                            firstCharacter(glyph.text), glyph.continues});
    line_.text += glyph.text;
    penX_ = glyph.x + glyph.ux * glyph.length;
    penY_ = glyph.y + glyph.uy * glyph.length;
    ux_ = glyph.ux;
    uy_ = glyph.uy;
    em_ = glyph.em;
}

void LineAssembler::endLine() {
    if (line_.isSpaced) closeLetterSpacing(line_);
    bool any = line_.isRightToLeft ? appendRightToLeftLine(line_, out_) : appendLine(line_, out_);
    if (any) out_ += u'\n';
    line_.clear();
}

void LineAssembler::finish() {
    endLine();
    if (out_.size() > start_ && out_.back() == u'\n') out_.pop_back();
}

// SPDX-License-Identifier: Apache-2.0
//
// What the codes of a font mean and how far they move the pen.
#pragma once

#include <mupdf/fitz.h>
#include <mupdf/pdf.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

// A code of a font. Widths are in ems, along the line; a vertical font's are negative, since it writes down.
struct FontCode {
    float width = 0;
    uint8_t bytes = 1; // of the code in the string
    uint8_t length = 0;
    bool isSpace = false; // spacing between words follows: the one-byte code 32
    bool isKnown = false; // the font has the code at all
    bool isFilled = false;
    char16_t units[16];

    std::u16string_view text() const { return {units, length}; }
};

class FontText {
public:
    // Keeps the font. `toUnicode` is the font's own table, or null.
    FontText(fz_context* context, pdf_font_desc* font, pdf_obj* toUnicode);
    ~FontText();
    FontText(const FontText&) = delete;
    FontText& operator=(const FontText&) = delete;

    const pdf_font_desc* font() const { return font_; }
    bool isVertical() const { return font_->wmode == 1; }
    // The height of its letters in ems: 1 but for fonts whose glyphs are drawings of any size.
    float heightInEms() const { return height_; }

    // The code at the start of `bytes`, which are not empty. The answer is good until the next question.
    const FontCode& codeAt(const unsigned char* bytes, const unsigned char* end);

private:
    FontCode& slot(unsigned code, unsigned bytes);
    void fill(FontCode& entry, unsigned code, unsigned bytes);
    void fillText(FontCode& entry, unsigned code, int cid);
    bool fillFromOwnTable(FontCode& entry, unsigned code);
    bool fillFromProgram(FontCode& entry, int cid);

    fz_context* context_;
    pdf_font_desc* font_;
    pdf_obj* toUnicode_;
    pdf_cmap* ownTable_ = nullptr;
    bool ownTableLoaded_ = false;
    float height_ = 1;
    bool oneByte_;
    bool codesAreGlyphs_;                  // no two codes stand for the same glyph
    std::array<FontCode, 256> codes_;      // by code where codes have one byte, else a cache
    std::array<unsigned, 256> codeOfSlot_; // code and number of bytes that a slot of the cache holds
    std::vector<char16_t> charactersOfGlyphs_;
    bool charactersOfGlyphsMade_ = false;
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/FontText.h"

#include "Platform/Foundation/UnicodeText.h"
#include "Platform/PDFKit/MuPDF/GlyphCharacters.h"
#include "Platform/PDFKit/MuPDF/Guarded.h"

#include <algorithm>

namespace {

constexpr int kMostCharacters = 8; // that one code can mean

bool hasOneByteCodes(const pdf_cmap* encoding) {
    return encoding->codespace_len == 1 && encoding->codespace[0].n == 1 && encoding->codespace[0].low == 0 &&
           encoding->codespace[0].high == 0xFF;
}

bool isIdentity(const pdf_cmap* encoding) {
    return std::string_view(encoding->cmap_name).substr(0, 8) == "Identity";
}

// The height of a font whose glyphs are drawings, by the box around them.
float heightOfDrawings(fz_context* context, fz_font* font) {
    if (!fz_font_t3_procs(context, font) || fz_font_flags(font)->invalid_bbox) return 1;
    fz_rect box = fz_font_bbox(context, font);
    float height = box.y1 - box.y0;
    return height > 0 && height < 20 ? height : 1;
}

bool isControl(int c) { return c < 0x20 || (c >= 0x7F && c <= 0x9F); }

// Takes characters over when they say something.
bool take(FontCode& entry, const int* characters, int count) {
    count = std::min(count, kMostCharacters);
    if (count == 1 && characters[0] >= 8 && characters[0] <= 13) {
        entry.units[0] = u' ';
        entry.length = 1;
        return true;
    }
    if (count < 1 || (count == 1 && (isControl(characters[0]) || characters[0] == kReplacementCharacter)))
        return false;
    entry.length = 0;
    for (int i = 0; i < count; ++i) {
        int c = characters[i];
        if (c < 0 || c > 0x10FFFF) c = kReplacementCharacter;
        if (c >= 0x10000) {
            entry.units[entry.length++] = char16_t(0xD7C0 + (c >> 10));
            entry.units[entry.length++] = char16_t(0xDC00 + (c & 0x3FF));
        } else {
            entry.units[entry.length++] = char16_t(c);
        }
    }
    return true;
}

} // namespace

FontText::FontText(fz_context* context, pdf_font_desc* font, pdf_obj* toUnicode)
    : context_(context), font_(pdf_keep_font(context, font)), toUnicode_(pdf_keep_obj(context, toUnicode)),
      height_(heightOfDrawings(context, font->font)), oneByte_(hasOneByteCodes(font->encoding)),
      codesAreGlyphs_(oneByte_ || isIdentity(font->encoding)) {
    codeOfSlot_.fill(~0U);
}

FontText::~FontText() {
    pdf_drop_cmap(context_, ownTable_);
    pdf_drop_obj(context_, toUnicode_);
    pdf_drop_font(context_, font_);
}

const FontCode& FontText::codeAt(const unsigned char* bytes, const unsigned char* end) {
    unsigned code = *bytes, count = 1;
    if (!oneByte_) {
        int used = pdf_decode_cmap(font_->encoding, const_cast<unsigned char*>(bytes),
                                   const_cast<unsigned char*>(end), &code);
        count = unsigned(std::clamp<ptrdiff_t>(used, 1, end - bytes));
    }
    FontCode& entry = slot(code, count);
    if (!entry.isFilled) fill(entry, code, count);
    return entry;
}

FontCode& FontText::slot(unsigned code, unsigned bytes) {
    if (oneByte_) return codes_[code];
    unsigned place = (code ^ (code >> 8)) & 0xFF, owner = code ^ (bytes << 29);
    if (codeOfSlot_[place] != owner) {
        codeOfSlot_[place] = owner;
        codes_[place].isFilled = false;
    }
    return codes_[place];
}

void FontText::fill(FontCode& entry, unsigned code, unsigned bytes) {
    int cid = pdf_lookup_cmap(font_->encoding, code);
    entry.isFilled = true;
    entry.isKnown = cid >= 0;
    entry.bytes = uint8_t(bytes);
    entry.isSpace = bytes == 1 && code == 32;
    entry.length = 0;
    if (cid < 0) return;
    entry.width = isVertical() ? float(pdf_lookup_vmtx(context_, font_, cid).w) / 1000
                               : float(pdf_lookup_hmtx(context_, font_, cid).w) / 1000;
    fillText(entry, code, cid);
}

void FontText::fillText(FontCode& entry, unsigned code, int cid) {
    // The engine keys the table by the number of the glyph: of codes that share one all but one lose theirs.
    if (!codesAreGlyphs_ && fillFromOwnTable(entry, code)) return;
    int characters[kMostCharacters];
    if (font_->to_unicode &&
        take(entry, characters, pdf_lookup_cmap_full(font_->to_unicode, unsigned(cid), characters)))
        return;
    if (size_t(cid) < font_->cid_to_ucs_len) {
        characters[0] = font_->cid_to_ucs[cid];
        if (take(entry, characters, characters[0] != 0)) return;
    }
    if (codesAreGlyphs_ && fillFromOwnTable(entry, code)) return;
    fillFromProgram(entry, cid);
}

bool FontText::fillFromOwnTable(FontCode& entry, unsigned code) {
    if (!ownTableLoaded_) {
        ownTableLoaded_ = true;
        guarded(context_, [this] {
            if (pdf_is_stream(context_, toUnicode_))
                ownTable_ = pdf_load_embedded_cmap(context_, pdf_get_indirect_document(context_, toUnicode_),
                                                   toUnicode_);
        });
    }
    int characters[kMostCharacters];
    return ownTable_ && take(entry, characters, pdf_lookup_cmap_full(ownTable_, code, characters));
}

// Composite fonts without any table: the font's program may say which character a glyph is drawn for.
bool FontText::fillFromProgram(FontCode& entry, int cid) {
    if (oneByte_ || !font_->is_embedded) return false;
    if (!charactersOfGlyphsMade_) {
        charactersOfGlyphsMade_ = true;
        charactersOfGlyphs_ = charactersOfGlyphs(context_, font_->font);
    }
    int glyph = pdf_font_cid_to_gid(context_, font_, cid);
    if (glyph < 0 || size_t(glyph) >= charactersOfGlyphs_.size()) return false;
    int character = charactersOfGlyphs_[size_t(glyph)];
    return take(entry, &character, character != 0);
}

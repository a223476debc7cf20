// SPDX-License-Identifier: Apache-2.0
//
// The fonts of an RTF document, as far as text goes: which encoding the bytes set in each have.
#pragma once

#include "Platform/AppKit/SymbolFont.h"
#include "Platform/Foundation/NSStringEncoding.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

class RTFFonts {
public:
    static constexpr size_t kNumberLimit = 65535;
    static constexpr uint16_t kNoFont = kNumberLimit;

    // A font's number as it is kept in a group's state; numbers out of range are no font.
    static uint16_t font(int32_t number) {
        return number >= 0 && size_t(number) < kNumberLimit ? uint16_t(number) : kNoFont;
    }

    void setDocumentCodePage(int32_t codePage);
    void setDefaultFont(int32_t number) { defaultFont_ = font(number); }
    uint16_t defaultFont() const { return defaultFont_; }

    // The font table. What is told holds for the font that was begun last.
    void begin(int32_t number);
    void setCharset(int32_t charset);
    void setCodePage(int32_t codePage);
    void setName(std::string_view name);

    // A font that is not in the table, or has no encoding of its own, has the document's.
    NSStringEncoding encoding(uint16_t font) const {
        NSStringEncoding own = font < fonts_.size() ? fonts_[font].encoding : NSNoStringEncoding;
        return own != NSNoStringEncoding ? own : documentEncoding_;
    }

    // In a font of signs the encoding does not matter.
    SymbolFont symbols(uint16_t font) const {
        return font < fonts_.size() ? fonts_[font].symbols : SymbolFont::none;
    }

private:
    struct Font {
        NSStringEncoding encoding = NSNoStringEncoding;
        SymbolFont symbols = SymbolFont::none;
    };

    void set(const Font& font);

    NSStringEncoding documentEncoding_ = NSWindowsCP1252StringEncoding;
    uint16_t defaultFont_ = kNoFont;
    uint16_t begun_ = kNoFont;
    std::vector<Font> fonts_; // by number
};

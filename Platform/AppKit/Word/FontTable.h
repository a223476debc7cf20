// SPDX-License-Identifier: Apache-2.0
//
// The fonts of a document: which are symbol fonts and, in old documents, the encoding of the text set in
// each.
#pragma once

#include "Platform/AppKit/SymbolFont.h"
#include "Platform/AppKit/Word/FileInformation.h"
#include "Platform/Foundation/NSStringEncoding.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Word {

class FontTable {
public:
    // The table is read when it is first asked, as most documents need it not. Both must outlive it.
    FontTable(const FileInformation& information, std::string_view tableStream)
        : information_(information), tableStream_(tableStream) {}

    // What is said of a font that does not exist: no symbol font, the document's own encoding.
    SymbolFont symbolFont(uint16_t font) { return fontAt(font).symbolFont; }
    NSStringEncoding encoding(uint16_t font) { return fontAt(font).encoding; }

private:
    struct Font {
        SymbolFont symbolFont = SymbolFont::none;
        NSStringEncoding encoding = NSWindowsCP1252StringEncoding;
    };

    const Font& fontAt(uint16_t index);
    void readFonts();

    const FileInformation& information_;
    std::string_view tableStream_;
    bool isRead_ = false;
    Font otherFont_; // stands for those that do not exist
    std::vector<Font> fonts_;
};

} // namespace Word

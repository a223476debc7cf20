// SPDX-License-Identifier: Apache-2.0
//
// Turns the bytes of an RTF text into characters. Bytes of one character may come in several pieces, so where
// an encoding has characters of more bytes they are held back until the run of bytes ends.
#pragma once

#include "Platform/AppKit/SymbolFont.h"
#include "Platform/Foundation/NSStringEncoding.h"

#include <string>
#include <string_view>

class RTFDecoder {
public:
    RTFDecoder() { use(NSWindowsCP1252StringEncoding, SymbolFont::none); }

    bool uses(NSStringEncoding encoding, SymbolFont symbols) const {
        return encoding == encoding_ && symbols == symbols_;
    }

    // What bytes stand for from here on: signs of a symbol font, or characters of an encoding. To be called
    // when nothing is held back.
    void use(NSStringEncoding encoding, SymbolFont symbols);

    void append(std::u16string& out, std::string_view bytes);

    bool holdsBytes() const { return !held_.empty(); }
    // Ends the run of bytes.
    void flush(std::u16string& out);

private:
    NSStringEncoding encoding_;
    SymbolFont symbols_;
    const char16_t* upperHalf_; // of an encoding of one byte a character
    std::string held_;
};

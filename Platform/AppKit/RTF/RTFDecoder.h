// SPDX-License-Identifier: Apache-2.0
//
// Turns the bytes of an RTF text into characters. Bytes of one character may come in several pieces, so where
// an encoding has characters of more bytes they are held back until the run of bytes ends.
#pragma once

#include "Platform/Foundation/NSStringEncoding.h"

#include <string>
#include <string_view>

class RTFDecoder {
public:
    RTFDecoder() { setEncoding(NSWindowsCP1252StringEncoding); }

    NSStringEncoding encoding() const { return encoding_; }

    // To be called when nothing is held back.
    void setEncoding(NSStringEncoding encoding);

    void append(std::u16string& out, std::string_view bytes);

    bool holdsBytes() const { return !held_.empty(); }
    // Ends the run of bytes.
    void flush(std::u16string& out);

private:
    NSStringEncoding encoding_;
    const char16_t* upperHalf_; // of an encoding of one byte a character
    std::string held_;
};

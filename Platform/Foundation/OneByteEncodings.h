// SPDX-License-Identifier: Apache-2.0
//
// The encodings that have one byte a character, with their tables.
#pragma once

#include "Platform/Foundation/NSStringEncoding.h"

struct OneByteEncoding {
    NSStringEncoding number;
    const char16_t* upper;           // the units of bytes 80 to FF; U+FFFD where there is none
    const char16_t* lower = nullptr; // of bytes 00 to 7F; null: ASCII

    // Whether C1 controls stand for bytes that the encoding leaves undefined, as in the Windows pages.
    bool fillsWithControls() const;

    constexpr bool operator<(NSStringEncoding other) const { return number < other; }
};

// Null when `encoding` has more than one byte a character or is unknown.
const OneByteEncoding* oneByteEncoding(NSStringEncoding encoding);

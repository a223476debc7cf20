// SPDX-License-Identifier: Apache-2.0
//
// Finds glyphs that are drawn a second time in the same place, as some writers make bold text and shadows.
#pragma once

#include "Platform/PDFKit/Text/Glyph.h"

#include <array>
#include <cstdint>
#include <string_view>

class DrawnTwice {
public:
    // True when a glyph with this text stood in the same place among the last ones. Remembers it otherwise.
    bool isRepeated(const Glyph& glyph, std::u16string_view text);

private:
    static constexpr uint32_t kRemembered = 64, kBuckets = 256;

    // One of the last glyphs, and the number of the one before it whose text has the same hash.
    struct Entry {
        uint64_t key;
        double x, y, em;
        uint32_t previous;
    };

    uint32_t count_ = 0;
    std::array<Entry, kRemembered> entries_;
    std::array<uint32_t, kBuckets> latest_{}; // the number of the last glyph of a hash, from 1; 0: none
};

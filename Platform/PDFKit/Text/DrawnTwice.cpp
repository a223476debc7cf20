// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/Text/DrawnTwice.h"

#include <cmath>

namespace {

constexpr double kSamePlace = 0.1; // ems

uint64_t keyOf(std::u16string_view text) {
    uint64_t key = 0;
    for (char16_t unit : text) key = key * 0x1F123BB5 + unit;
    return key;
}

} // namespace

bool DrawnTwice::isRepeated(const Glyph& glyph, std::u16string_view text) {
    uint64_t key = keyOf(text);
    uint32_t& latest = latest_[key % kBuckets];
    double near = kSamePlace * glyph.em;
    for (uint32_t n = latest; n > 0 && n + kRemembered > count_;) {
        const Entry& entry = entries_[n % kRemembered];
        if (entry.key == key && std::abs(entry.x - glyph.x) < near && std::abs(entry.y - glyph.y) < near &&
            std::abs(entry.em - glyph.em) < near)
            return true;
        n = entry.previous;
    }
    ++count_;
    entries_[count_ % kRemembered] = {key, glyph.x, glyph.y, glyph.em, latest};
    latest = count_;
    return false;
}

// SPDX-License-Identifier: Apache-2.0
//
// The shape that most tables of a Word document have: count + 1 ascending positions, then count entries of
// one size, which tell of what lies between the positions.
#pragma once

#include "Platform/Foundation/LittleEndian.h"

namespace Word {

class PositionTable {
public:
    // `length` is that which the document declares; `bytes` may have been cut off before. Entries that are
    // cut off do not count.
    PositionTable(std::string_view bytes, size_t length, size_t entrySize)
        : bytes_(bytes), entries_(0), entrySize_(entrySize), count_(0) {
        if (length < 4 || bytes.size() < 4) return;
        size_t declared = (length - 4) / (4 + entrySize);
        entries_ = 4 * (declared + 1);
        size_t positions = bytes.size() / 4 - 1;
        size_t entries = declared;
        if (entrySize > 0) entries = bytes.size() > entries_ ? (bytes.size() - entries_) / entrySize : 0;
        count_ = std::min({declared, positions, entries});
    }

    size_t count() const { return count_; }
    uint32_t position(size_t index) const { return uint32At(bytes_, 4 * index); } // index up to count
    std::string_view entry(size_t index) const {
        return slice(bytes_, entries_ + entrySize_ * index, entrySize_);
    }

private:
    std::string_view bytes_;
    size_t entries_; // where they begin
    size_t entrySize_, count_;
};

} // namespace Word

// SPDX-License-Identifier: Apache-2.0
//
// The fields that are open at a place in the text. What stands between a field's begin and its separator is
// its instruction, what stands between separator and end its result. Fields nest, in both parts.
#pragma once

#include <cstddef>
#include <vector>

namespace Word {

class FieldStack {
public:
    void begin() {
        inInstruction_.push_back(true);
        ++instructions_;
    }

    // A separator or an end without a begin is ignored, and so is a second separator.
    void separate() {
        if (inInstruction_.empty() || !inInstruction_.back()) return;
        inInstruction_.back() = false;
        --instructions_;
    }
    void end() {
        separate();
        if (!inInstruction_.empty()) inInstruction_.pop_back();
    }

    bool isInInstruction() const { return instructions_ > 0; }

private:
    std::vector<bool> inInstruction_; // of each open field, the innermost last
    size_t instructions_ = 0;         // how many of them are
};

} // namespace Word

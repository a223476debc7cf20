// SPDX-License-Identifier: Apache-2.0
//
// Distinct texts with the numbers in which they came. Asked once for every word of a text, so it keeps close
// together what one question touches.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class TermTable {
public:
    TermTable();

    // Of a term that is new, the next number. Throws std::length_error when there are too many.
    uint32_t number(std::u16string_view term);

    size_t count() const { return ends_.size(); }
    std::u16string_view term(uint32_t number) const;

private:
    struct Slot {
        uint32_t hash = 0, next = 0; // the number after the term's, so that 0 is none
    };

    uint32_t hash(std::u16string_view term) const;
    Slot& slotFor(std::u16string_view term, uint32_t hash);
    void grow();

    uint64_t seed_; // else a document could be made of words that fall together
    std::vector<Slot> slots_;
    std::u16string texts_; // of all terms, one behind the other
    std::vector<size_t> ends_;
};

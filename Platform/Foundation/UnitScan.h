// SPDX-License-Identifier: Apache-2.0
//
// Searching very long texts for units. The test runs over whole blocks without a way out, which the compiler
// turns into vector code, so the test must be plain arithmetic.
#pragma once

#include <cstddef>
#include <string_view>

inline constexpr size_t kScanBlock = 16;

template <class Test>
inline bool blockHas(const char16_t* units, Test test) {
    unsigned char found = 0;
    for (size_t i = 0; i < kScanBlock; ++i) found |= static_cast<unsigned char>(test(units[i]));
    return found != 0;
}

// The first unit from `start` on that passes the test; the text's length when none does.
template <class Test>
inline size_t findUnit(std::u16string_view text, size_t start, Test test) {
    while (text.size() - start >= kScanBlock && !blockHas(text.data() + start, test)) start += kScanBlock;
    while (start < text.size() && !test(text[start])) ++start;
    return start;
}

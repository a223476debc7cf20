// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode/UnicodeModule.h"

#include <algorithm>
#include <memory>
#include <unicode/ubrk.h>
#include <unicode/utf16.h>

namespace {

struct CloseIterator {
    void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};

// Opening one reads the rules; each thread does so once.
UBreakIterator* characterIterator() {
    UErrorCode status = U_ZERO_ERROR;
    thread_local const std::unique_ptr<UBreakIterator, CloseIterator> iterator(
        ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status));
    return iterator.get();
}

// Without the library's rules a surrogate pair is all that holds together.
UnicodeRange codePointAround(std::u16string_view text, size_t index) {
    size_t start = index;
    U16_SET_CP_START(text.data(), 0, start);
    size_t end = start;
    U16_FWD_1(text.data(), end, text.size());
    return {start, end};
}

// The library counts in 32 bits; no cluster is longer than this.
constexpr size_t kReach = size_t(1) << 30;

} // namespace

UnicodeRange clusterAround(std::u16string_view text, size_t index) noexcept {
    const size_t skipped = index > kReach ? index - kReach : 0;
    const std::u16string_view near = text.substr(skipped, 2 * kReach - 1);
    int32_t at = int32_t(index - skipped);
    U16_SET_CP_START(near.data(), 0, at);

    UErrorCode status = U_ZERO_ERROR;
    UBreakIterator* iterator = characterIterator();
    if (iterator) ubrk_setText(iterator, near.data(), int32_t(near.size()), &status);
    if (!iterator || U_FAILURE(status)) return codePointAround(text, index);
    const int32_t start = ubrk_isBoundary(iterator, at) ? at : ubrk_preceding(iterator, at);
    const int32_t end = ubrk_following(iterator, at);
    return {skipped + size_t(std::max(start, 0)), skipped + (end == UBRK_DONE ? near.size() : size_t(end))};
}

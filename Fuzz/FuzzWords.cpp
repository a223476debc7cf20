// SPDX-License-Identifier: Apache-2.0
//
// Text as words, as characters and as what is searched for: the input is UTF-16, its first unit the options
// and the length of what is wanted, which comes next.
#include "Platform/Foundation/Unicode/UnicodeModule.h"

#include <cstdlib>
#include <cstring>

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

bool countWord(void* context, std::u16string_view word) noexcept {
    require(!word.empty());
    *static_cast<size_t*>(context) += word.size();
    return true;
}

void walkCharacters(std::u16string_view text) {
    for (size_t at = 0; at < text.size();) {
        const UnicodeRange range = clusterAround(text, at);
        require(range.start == at && range.end > at && range.end <= text.size());
        const UnicodeRange again = clusterAround(text, range.end - 1);
        require(again.start == range.start && again.end == range.end);
        at = range.end;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::u16string units(size / 2, 0);
    if (units.empty()) return 0;
    std::memcpy(units.data(), data, units.size() * 2);
    const unsigned options = units[0] >> 4;
    std::u16string_view text = std::u16string_view(units).substr(1);
    const std::u16string_view wanted = text.substr(0, units[0] & 15);
    text.remove_prefix(wanted.size());

    size_t total = 0;
    require(breakWords(text, countWord, &total));
    require(total <= 18 * text.size()); // the longest compatibility form of a character has 18 units
    walkCharacters(text);
    const std::u16string form = folded(text, options);
    require(folded(form, options) == form);
    const UnicodeRange found = findFolded(text, wanted, options);
    require(found.start <= found.end && found.end <= text.size());
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode/UnicodeModule.h"

#include "Platform/Foundation/Module.h"

#include <new>

namespace {

bool fold(std::u16string_view text, unsigned options, std::u16string& out) noexcept {
    try {
        out = folded(text, options);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool find(std::u16string_view text, std::u16string_view wanted, unsigned options,
          UnicodeRange& found) noexcept {
    try {
        found = findFolded(text, wanted, options);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool words(std::u16string_view text, WordSink sink, void* context) noexcept {
    try {
        return breakWords(text, sink, context);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

} // namespace

extern "C" __attribute__((visibility("default"))) const UnicodeFunctions* MODULE_ENTRY() {
    static constexpr UnicodeFunctions functions{clusterAround, fold, find, words};
    return &functions;
}

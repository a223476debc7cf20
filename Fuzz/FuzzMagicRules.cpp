// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as rules of kinds, applied to the same bytes.
#include "Platform/SearchKit/MagicRules.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const MagicMatch match = findMagic(bytes, bytes);
    if (match.priority > 100 || (match.priority < 0 && !match.type.empty())) std::abort();
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
//
// Walks any bytes as a file of the QuickTime family. No text is longer than its bytes can be, unless a movie
// was compressed.
#include "Platform/AVFoundation/Atoms/AtomWalker.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MemorySource source(bytes);
    std::vector<MediaItem> items;
    readAtomFile(source, items);
    const bool mayBeCompressed = bytes.find("cmvd") != std::string_view::npos;
    for (const MediaItem& item : items) {
        const auto* text = std::get_if<std::u16string>(&item.value);
        if (item.key.empty() || (text && !mayBeCompressed && text->size() > 4 * size)) std::abort();
    }
    return 0;
}

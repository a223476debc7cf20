// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as an ID3 tag: what it claims to be long is what is stepped over.
#include "Platform/AVFoundation/ID3/ID3Reader.h"

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MemorySource source({reinterpret_cast<const char*>(data), size});
    std::vector<MediaItem> items;
    const uint64_t length = readID3Tag(source, {0, source.size()}, items);
    if ((length == 0 && !items.empty()) || length > (uint64_t(1) << 28) + 20) std::abort();
    for (const MediaItem& item : items) {
        if (item.space != MediaKeySpace::id3 || item.key.size() != 4) std::abort();
    }
    return 0;
}

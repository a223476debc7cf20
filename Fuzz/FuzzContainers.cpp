// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as a media file by all readers that have no library.
#include "Platform/AVFoundation/Chunks/ChunkReader.h"
#include "Platform/AVFoundation/FLAC/FLACReader.h"
#include "Platform/AVFoundation/Matroska/MatroskaReader.h"
#include "Platform/AVFoundation/Ogg/OggReader.h"
#include "Platform/AVFoundation/ReadMedia.h"

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MemorySource source(bytes);
    std::vector<MediaItem> items, others;
    readMedia(source, items);
    // A reader that says that a file is not its own has taken nothing from it.
    if (!readMatroskaFile(source, others) && !readChunkFile(source, {0, size}, others) &&
        !readOggFile(source, {0, size}, others) && !readFLACFile(source, {0, size}, others) &&
        !others.empty())
        std::abort();
    addVorbisComment(bytes, others);
    return 0;
}

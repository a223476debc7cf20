// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/Compression/Decompress.h"

#include "Platform/SearchKit/Compression/Codecs.h"

#include <new>
#include <stdexcept>

namespace {

constexpr size_t kLimit = size_t(256) << 20; // bytes, of what was compressed

template <class Codec>
void decompressWith(std::string_view bytes, Deadline& deadline, std::string& all) {
    Codec codec;
    char piece[64 << 10];
    for (bool goesOn = true; goesOn && all.size() < kLimit && !deadline.passed();) {
        size_t size = sizeof piece;
        goesOn = codec.decode(bytes, piece, size);
        all.append(piece, size);
    }
}

using Decompressor = void (*)(std::string_view bytes, Deadline& deadline, std::string& all);

Decompressor decompressorFor(std::string_view bytes) {
    if (bytes.starts_with("\x1F\x8B")) return decompressWith<GzipCodec>;
    if (bytes.starts_with("BZh")) return decompressWith<Bzip2Codec>;
    if (bytes.starts_with("\x28\xB5\x2F\xFD")) return decompressWith<ZstdCodec>;
    if (bytes.starts_with("\xFD"
                          "7zXZ") ||
        bytes.starts_with(std::string_view("]\0\0", 3)))
        return decompressWith<LzmaCodec>;
    return nullptr;
}

} // namespace

DecompressionStatus decompress(std::string_view bytes, Deadline& deadline, std::string& all) {
    const Decompressor decompressor = decompressorFor(bytes);
    if (!decompressor) return DecompressionStatus::wrongKind;
    try {
        decompressor(bytes, deadline, all);
        return DecompressionStatus::done;
    } catch (const std::bad_alloc&) {
        return DecompressionStatus::outOfMemory;
    } catch (const std::length_error&) {
        return DecompressionStatus::outOfMemory;
    }
}

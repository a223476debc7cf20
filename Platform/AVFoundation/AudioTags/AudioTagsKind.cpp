// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AudioTags/AudioTagsKind.h"

#include <string_view>

namespace {

struct Magic {
    std::string_view bytes;
    AudioTagsKind kind;
};

constexpr Magic kMagic[] = {
    {"MAC ", AudioTagsKind::monkeysAudio},
    {"MP+", AudioTagsKind::musepack},
    {"MPCK", AudioTagsKind::musepack},
    {"wvPk", AudioTagsKind::wavPack},
    {"\x30\x26\xB2\x75\x8E\x66\xCF\x11", AudioTagsKind::windowsMedia},
};

} // namespace

AudioTagsKind audioTagsKind(ByteSource& source, uint64_t begin) {
    constexpr unsigned apeFooter = 32, id3Version1 = 128;
    const std::string start = source.bytes(begin, 8);
    for (const Magic& magic : kMagic) {
        if (start.substr(0, magic.bytes.size()) == magic.bytes) return magic.kind;
    }
    const uint64_t size = source.size();
    const auto isAtEnd = [&](uint64_t distance, std::string_view bytes) {
        return size >= distance && source.bytes(size - distance, bytes.size()) == bytes;
    };
    return isAtEnd(id3Version1, "TAG") || isAtEnd(apeFooter, "APETAGEX") ||
                   isAtEnd(apeFooter + id3Version1, "APETAGEX")
               ? AudioTagsKind::atTheEnd
               : AudioTagsKind::none;
}

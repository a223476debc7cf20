// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AudioTags/AudioTagsKind.h"

#include <string_view>

AudioTagsKind audioTagsKind(ByteSource& source, uint64_t begin) {
    constexpr std::string_view windowsMedia = "\x30\x26\xB2\x75\x8E\x66\xCF\x11";
    constexpr unsigned apeFooter = 32, id3Version1 = 128;
    if (source.bytes(begin, windowsMedia.size()) == windowsMedia) return AudioTagsKind::windowsMedia;
    const uint64_t size = source.size();
    const auto isAtEnd = [&](uint64_t distance, std::string_view bytes) {
        return size >= distance && source.bytes(size - distance, bytes.size()) == bytes;
    };
    return isAtEnd(id3Version1, "TAG") || isAtEnd(apeFooter, "APETAGEX") ||
                   isAtEnd(apeFooter + id3Version1, "APETAGEX")
               ? AudioTagsKind::atTheEnd
               : AudioTagsKind::none;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Ogg/OggReader.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>

namespace {

// Takes a string with its length in front; everything when the length is more than there is.
std::string_view takeString(std::string_view& bytes) {
    if (bytes.size() < 4) return bytes = {};
    MemorySource source(bytes);
    const std::string_view string = bytes.substr(4, size_t(source.littleEndian(0, 4)));
    bytes.remove_prefix(4 + string.size());
    return string;
}

} // namespace

void addVorbisComment(std::string_view comment, std::vector<MediaItem>& items) {
    takeString(comment);                                        // the program that wrote it
    comment.remove_prefix(std::min<size_t>(4, comment.size())); // how many fields follow
    while (!comment.empty()) {
        const std::string_view field = takeString(comment);
        const size_t equals = field.find('=');
        if (equals == std::string_view::npos) continue;
        items.push_back(
            {MediaKeySpace::fieldName, uppered(field.substr(0, equals)), fromUTF8(field.substr(equals + 1))});
    }
}

// SPDX-License-Identifier: Apache-2.0
//
// The items of media files, as tests compare them.
#pragma once

#include "Platform/AVFoundation/ReadMedia.h"
#include "Platform/Foundation/UnicodeText.h"

#include <string>
#include <utility>
#include <vector>

struct ReadResult {
    AudioTagsKind rest = AudioTagsKind::none;
    std::vector<MediaItem> items;
};

inline ReadResult readBytes(std::string_view bytes) {
    ReadResult result;
    MemorySource source(bytes);
    result.rest = readMedia(source, result.items);
    return result;
}

using Texts = std::vector<std::pair<std::string, std::string>>;

// The texts of one space by key, in their order; "(opaque)" and numbers for other values.
inline Texts textsIn(const std::vector<MediaItem>& items, MediaKeySpace space) {
    Texts texts;
    for (const MediaItem& item : items) {
        if (item.space != space) continue;
        const auto* text = std::get_if<std::u16string>(&item.value);
        const auto* number = std::get_if<int64_t>(&item.value);
        texts.emplace_back(item.key, text     ? toUTF8(*text, LoneSurrogates::threeBytes)
                                     : number ? std::to_string(*number)
                                              : "(opaque)");
    }
    return texts;
}

inline Texts textsOf(std::string_view bytes, MediaKeySpace space) {
    return textsIn(readBytes(bytes).items, space);
}

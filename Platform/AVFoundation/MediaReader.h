// SPDX-License-Identifier: Apache-2.0
//
// What the readers of media files give: items as the file has them, without the value model. Readers never
// fail; a file that is none of theirs, or is damaged, gives the items that could be read.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

enum class MediaKeySpace : uint8_t {
    fieldName,         // "TITLE": names in capitals, as Vorbis comments and Matroska tags have them
    iTunes,            // "@nam": four characters, "@" for the byte A9
    quickTimeMetadata, // "com.apple.quicktime.title"
    quickTimeUserData, // "@nam"
    isoUserData,       // "titl"
    id3                // "TIT2", the identifiers of version 2.3
};

// A value that is neither text nor number; it is not loaded.
struct OpaqueValue {};

using MediaValue = std::variant<OpaqueValue, std::u16string, int64_t>;

struct MediaItem {
    MediaKeySpace space = MediaKeySpace::fieldName;
    std::string key; // ASCII
    MediaValue value;
};

// Reads the metadata of an open file and appends its items in the order of the file. The descriptor stays the
// caller's. What no memory could be had for is missing.
using MediaReader = void (*)(int file, std::vector<MediaItem>& items);

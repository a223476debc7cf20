// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for audio and video.
#include "Platform/AVFoundation/AudioTags/ContainedAudioTags.h"
#include "Platform/AVFoundation/ReadMedia.h"
#include "Platform/Foundation/Module.h"

#include <new>
#include <stdexcept>

namespace {

void read(int file, std::vector<MediaItem>& items) {
    FileSource source(file);
    const AudioTagsKind rest = readMedia(source, items);
    if (rest == AudioTagsKind::none) return;
    // Items that come later count, so a tag in front of the file prevails, key by key.
    std::vector<MediaItem> others;
    readAudioTagsContained(file, rest, others);
    items.insert(items.begin(), others.begin(), others.end());
}

} // namespace

extern "C" __attribute__((visibility("default"))) void MODULE_ENTRY(int file, std::vector<MediaItem>& items) {
    try {
        read(file, items);
    } catch (const std::bad_alloc&) {
        // What has been read so far is reported.
    } catch (const std::length_error&) {
    }
}

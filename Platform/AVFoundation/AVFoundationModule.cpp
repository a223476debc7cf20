// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for audio and video, which loads the one for further tags when a file has them.
#include "Platform/AVFoundation/AudioTags/AudioTags.h"
#include "Platform/AVFoundation/ReadMedia.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSLog.h"

#include <new>
#include <stdexcept>

namespace {

void read(int file, std::vector<MediaItem>& items) {
    FileSource source(file);
    const AudioTagsKind rest = readMedia(source, items);
    if (rest == AudioTagsKind::none) return;
    NSString why;
    if (auto readTags = reinterpret_cast<AudioTagsReader>(moduleEntry("AudioTags", &why))) {
        // Items that come later count, so a tag in front of the file prevails, key by key.
        std::vector<MediaItem> others;
        readTags(file, rest, others);
        items.insert(items.begin(), others.begin(), others.end());
    } else {
        NSLog(why);
    }
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

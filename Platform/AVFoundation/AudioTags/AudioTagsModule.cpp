// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for tags that TagLib reads.
#include "Platform/AVFoundation/AudioTags/AudioTags.h"
#include "Platform/Foundation/Module.h"

extern "C" __attribute__((visibility("default"))) void MODULE_ENTRY(int file, AudioTagsKind kind,
                                                                    std::vector<MediaItem>& items) {
    readAudioTags(file, kind, items);
}

// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for audio and video.
#include "Platform/AVFoundation/ReadMedia.h"
#include "Platform/Foundation/Module.h"

#include <new>
#include <stdexcept>

extern "C" __attribute__((visibility("default"))) void MODULE_ENTRY(int file, std::vector<MediaItem>& items) {
    try {
        FileSource source(file);
        readMedia(source, items);
    } catch (const std::bad_alloc&) {
        // What has been read so far is reported.
    } catch (const std::length_error&) {
    }
}

// SPDX-License-Identifier: Apache-2.0
//
// Hands any bytes to the library for tags, as the kind of file that they begin as.
#include "Platform/AVFoundation/AudioTags/AudioTags.h"
#include "Platform/Foundation/FileDescriptor.h"

#include <cstddef>
#include <cstdlib>
#include <sys/mman.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    MemorySource source({reinterpret_cast<const char*>(data), size});
    const AudioTagsKind kind = audioTagsKind(source, 0);
    if (kind == AudioTagsKind::none) return 0;
    const FileDescriptor file(memfd_create("tags", MFD_CLOEXEC));
    if (write(file.get(), data, size) != ssize_t(size)) std::abort();
    std::vector<MediaItem> items;
    readAudioTags(file.get(), kind, items);
    return 0;
}

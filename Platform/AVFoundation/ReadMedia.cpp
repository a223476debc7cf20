// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/ReadMedia.h"

#include "Platform/AVFoundation/Atoms/AtomWalker.h"

bool readMedia(ByteSource& source, std::vector<MediaItem>& items) {
    if (isAtomFile(source)) {
        readAtomFile(source, items);
        return true;
    }
    return false;
}

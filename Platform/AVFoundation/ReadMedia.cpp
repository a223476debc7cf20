// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/ReadMedia.h"

#include "Platform/AVFoundation/Atoms/AtomWalker.h"
#include "Platform/AVFoundation/Chunks/ChunkReader.h"
#include "Platform/AVFoundation/FLAC/FLACReader.h"
#include "Platform/AVFoundation/ID3/ID3Reader.h"
#include "Platform/AVFoundation/Matroska/MatroskaReader.h"
#include "Platform/AVFoundation/Ogg/OggReader.h"

#include <algorithm>

AudioTagsKind readMedia(ByteSource& source, std::vector<MediaItem>& items) {
    constexpr int kTagsInFront = 4;
    if (isAtomFile(source)) {
        readAtomFile(source, items);
        return AudioTagsKind::none;
    }
    if (readMatroskaFile(source, items)) return AudioTagsKind::none;
    ByteRange content = {0, source.size()};
    for (int i = 0; i < kTagsInFront; ++i) content = content.part(readID3Tag(source, content, items));
    if (readChunkFile(source, content, items) || readOggFile(source, content, items) ||
        readFLACFile(source, content, items))
        return AudioTagsKind::none;
    const AudioTagsKind kind = audioTagsKind(source, content.begin);
    // A tag in front that names the piece says all that the one at the end does.
    const bool hasTitle =
        std::any_of(items.begin(), items.end(), [](const MediaItem& item) { return item.key == "TIT2"; });
    return kind == AudioTagsKind::atTheEnd && hasTitle ? AudioTagsKind::none : kind;
}

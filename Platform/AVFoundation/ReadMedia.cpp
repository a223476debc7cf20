// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/ReadMedia.h"

#include "Platform/AVFoundation/Atoms/AtomWalker.h"
#include "Platform/AVFoundation/Chunks/ChunkReader.h"
#include "Platform/AVFoundation/ID3/ID3Reader.h"
#include "Platform/AVFoundation/Matroska/MatroskaReader.h"
#include "Platform/AVFoundation/Ogg/OggReader.h"

AudioTagsKind readMedia(ByteSource& source, std::vector<MediaItem>& items) {
    constexpr int kTagsInFront = 4;
    if (isAtomFile(source)) {
        readAtomFile(source, items);
        return AudioTagsKind::none;
    }
    if (readMatroskaFile(source, items)) return AudioTagsKind::none;
    ByteRange content = {0, source.size()};
    for (int i = 0; i < kTagsInFront; ++i) content = content.part(readID3Tag(source, content, items));
    if (readChunkFile(source, content, items) || readOggFile(source, content, items))
        return AudioTagsKind::none;
    const AudioTagsKind kind = audioTagsKind(source, content.begin);
    // The tag in front says more than the one at the end.
    return kind == AudioTagsKind::atTheEnd && !items.empty() ? AudioTagsKind::none : kind;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/FLAC/FLACReader.h"

#include "Platform/AVFoundation/Ogg/OggReader.h"

bool readFLACFile(ByteSource& source, ByteRange range, std::vector<MediaItem>& items) {
    constexpr unsigned blockLimit = 1024, headerLength = 4;
    constexpr uint64_t isLast = 0x80, comments = 4; // in the first byte of a block: a flag, and a type
    if (source.bytes(range.begin, 4) != "fLaC") return false;
    ByteAllowance allowance;
    ByteRange rest = range.part(4);
    for (unsigned count = 0; count < blockLimit && rest.length() >= headerLength; ++count) {
        const uint64_t kind = source.bigEndian(rest.begin, 1), length = source.bigEndian(rest.begin + 1, 3);
        if ((kind & ~isLast) == comments)
            addVorbisComment(allowance.take(source, rest.part(headerLength, length)), items);
        if (kind & isLast) break;
        rest = rest.part(headerLength + length);
    }
    return true;
}

// SPDX-License-Identifier: Apache-2.0
//
// ID3 tags, versions 2.2 to 2.4, at the start of a file or inside of a container.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <vector>

// Appends the text frames of the tag at the start of the range, and that there is a picture. Answers the
// length of the whole tag as it says it, 0 when there is none.
uint64_t readID3Tag(ByteSource& source, ByteRange range, std::vector<MediaItem>& items);

// SPDX-License-Identifier: Apache-2.0
//
// Files of the QuickTime family: MOV, MP4, M4A, 3GP and their kin. Only the metadata of the movie is read,
// not that of its tracks, and never its media.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <vector>

// Whether the first atom is one that such files begin with.
bool isAtomFile(ByteSource& source);

// Appends the metadata of the file in its order.
void readAtomFile(ByteSource& source, std::vector<MediaItem>& items);

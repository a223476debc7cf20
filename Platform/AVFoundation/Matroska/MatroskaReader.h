// SPDX-License-Identifier: Apache-2.0
//
// Matroska and WebM: the title of the segment, and the tags of the whole of it.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <vector>

// Appends the metadata of the file, what is said of the whole album or series before what is said of this
// piece. False when it is no such file.
bool readMatroskaFile(ByteSource& source, std::vector<MediaItem>& items);

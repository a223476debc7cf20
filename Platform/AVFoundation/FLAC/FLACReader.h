// SPDX-License-Identifier: Apache-2.0
//
// FLAC files of their own, without a container around them.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <vector>

// Appends the comments of the file in the range. False when it is no such file.
bool readFLACFile(ByteSource& source, ByteRange range, std::vector<MediaItem>& items);

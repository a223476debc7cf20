// SPDX-License-Identifier: Apache-2.0
//
// Which reader a media file is for: told by its first bytes, never by its name.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <vector>

// Reads with the readers of this module. False when the file is none of theirs, or has tags of the kinds that
// the module "AudioTags" reads; then nothing has been appended.
bool readMedia(ByteSource& source, std::vector<MediaItem>& items);

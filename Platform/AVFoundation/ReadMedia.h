// SPDX-License-Identifier: Apache-2.0
//
// Which reader a media file is for: told by its bytes, never by its name.
#pragma once

#include "Platform/AVFoundation/AudioTags/AudioTagsKind.h"
#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <vector>

// Appends what the readers of this module find, and answers for which of the readers of the module
// "AudioTags" there is something left.
AudioTagsKind readMedia(ByteSource& source, std::vector<MediaItem>& items);

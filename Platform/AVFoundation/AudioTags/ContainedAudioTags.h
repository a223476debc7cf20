// SPDX-License-Identifier: Apache-2.0
//
// The module "AudioTags" at work in a process of its own, since a damaged file may make its library crash or
// search for ever. This process never loads the library.
#pragma once

#include "Platform/AVFoundation/AudioTags/AudioTagsKind.h"
#include "Platform/AVFoundation/MediaReader.h"

#include <vector>

// Appends the tags of an open file of a kind. A missing module is logged.
void readAudioTagsContained(int file, AudioTagsKind kind, std::vector<MediaItem>& items);

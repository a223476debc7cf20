// SPDX-License-Identifier: Apache-2.0
//
// Tags that the library TagLib reads. They lie in a module of their own, since most files have other tags.
#pragma once

#include "Platform/AVFoundation/AudioTags/AudioTagsKind.h"
#include "Platform/AVFoundation/MediaReader.h"

#include <vector>

// Appends the tags of an open file of a kind. The descriptor stays the caller's. No exception comes out.
using AudioTagsReader = void (*)(int file, AudioTagsKind kind, std::vector<MediaItem>& items);
void readAudioTags(int file, AudioTagsKind kind, std::vector<MediaItem>& items);

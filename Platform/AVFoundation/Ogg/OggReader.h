// SPDX-License-Identifier: Apache-2.0
//
// Ogg files: the comments of each of their streams, whether Vorbis, Opus, Speex, FLAC or Theora. Films and
// other files with several streams are read too, which TagLib does not.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <string_view>
#include <vector>

// Appends the comments of the streams of the file in the range. False when it is no such file.
bool readOggFile(ByteSource& source, ByteRange range, std::vector<MediaItem>& items);

// Appends the fields of a Vorbis comment, their names in capitals; of a damaged one those before the damage.
void addVorbisComment(std::string_view comment, std::vector<MediaItem>& items);

// SPDX-License-Identifier: Apache-2.0
//
// Files that are a row of chunks, each with four characters and a length: WAV, AVI and RF64; AIFF; CAF; and
// the two formats of one-bit audio, DSF and DSDIFF. Their texts, and the ID3 tag that may be among the
// chunks.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/ByteSource.h"

#include <vector>

// Appends the metadata of the file in the range, the ID3 tag's last. False when it is no such file.
bool readChunkFile(ByteSource& source, ByteRange range, std::vector<MediaItem>& items);

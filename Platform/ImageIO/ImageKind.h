// SPDX-License-Identifier: Apache-2.0
//
// What must be known of a file before a library may look at it.
#pragma once

#include "Platform/Foundation/ByteSource.h"

// Whether the file can be an image: no film in a container that images share, and no file whose structure
// would make a reader walk through all of it for nothing.
bool mayBeImage(ByteSource& source);

// The packet of XMP in a GIF file, "" when there is none.
std::string xmpOfGIF(ByteSource& source);

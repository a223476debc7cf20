// SPDX-License-Identifier: Apache-2.0
//
// The user data of a movie: QuickTime's international texts, the texts of 3GP and ISO files, and the item
// list that stands among them.
#pragma once

#include "Platform/AVFoundation/Atoms/AtomList.h"
#include "Platform/AVFoundation/MediaReader.h"

#include <vector>

// Appends the items of the body of a `udta` atom.
void readUserData(ByteSource& source, ByteRange userData, AtomAllowance& allowance,
                  std::vector<MediaItem>& items);

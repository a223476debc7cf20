// SPDX-License-Identifier: Apache-2.0
//
// Item lists: the `meta` atom with its handler, the names of its keys and their values.
#pragma once

#include "Platform/AVFoundation/Atoms/AtomList.h"
#include "Platform/AVFoundation/MediaReader.h"

#include <vector>

// Appends the items of the body of a `meta` atom: iTunes metadata, or QuickTime metadata with named keys.
void readItemList(ByteSource& source, ByteRange meta, AtomAllowance& allowance,
                  std::vector<MediaItem>& items);

// The value of a `data` atom. `isText` says that its key stands for text, whatever type its writer gave.
MediaValue valueOfDataAtom(ByteSource& source, ByteRange body, bool isText, AtomAllowance& allowance);

// SPDX-License-Identifier: Apache-2.0
//
// The metadata of audio and video that a record holds: which keys are read, and how values are found.
#pragma once

#include "Platform/AVFoundation/AVMetadataItem.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDictionary.h"

#include <vector>

// The keys of each key space, in the order in which they are looked for.
NSArray commonMetadataKeys();
NSArray iTunesMetadataKeys();
NSArray quickTimeMetadataKeys();
NSArray quickTimeUserMetadataKeys();

// The strings of the items by key, for these keys of one key space. Of several strings of a key the last one
// counts; other values are passed over.
NSDictionary metadataDictFromItems(const std::vector<AVMetadataItem>& items, const NSArray& keys,
                                   const NSString& keySpace);

// The value of the first key: its string, or the first string of its array; nil when there is none. The other
// keys are never looked at: hosts rely on it that one key alone names the title, and one the author.
NSString firstValueForKeys(const NSDictionary& dictionary, const NSArray& keys);

// SPDX-License-Identifier: Apache-2.0
//
// One item of an asset's metadata: a key in a key space, and a value.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

#include <vector>

struct AVMetadataItem {
    NSString key;      // one of the constants of AVMetadataKeys.h, or any other key of the space
    NSString keySpace; // AVMetadataKeySpace...
    // A string or a number. Of anything else, a cover for one, an empty data value: its bytes are not loaded.
    NSObject value;

    // Those of the items with this key and key space, in their order.
    static std::vector<AVMetadataItem> metadataItemsFromArray(const std::vector<AVMetadataItem>& items,
                                                              const NSString& key, const NSString& keySpace);
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AVMetadataItem.h"

#include <algorithm>
#include <iterator>

std::vector<AVMetadataItem> AVMetadataItem::metadataItemsFromArray(const std::vector<AVMetadataItem>& items,
                                                                   const NSString& key,
                                                                   const NSString& keySpace) {
    std::vector<AVMetadataItem> found;
    std::copy_if(items.begin(), items.end(), std::back_inserter(found), [&](const AVMetadataItem& item) {
        return item.key.isEqualToString(key) && item.keySpace.isEqualToString(keySpace);
    });
    return found;
}

// SPDX-License-Identifier: Apache-2.0
//
// A file of sound or moving pictures, of which only the metadata is read. The readers lie in the module
// "AVFoundation", which is loaded when an asset is first asked.
#pragma once

#include "Platform/AVFoundation/AVMetadataItem.h"
#include "Platform/AVFoundation/MediaReader.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSURL.h"

#include <optional>
#include <vector>

class AVAsset {
public:
    // Whether metadata can be read at all; if not, a sentence in `why` names the module that is missing.
    static bool canReadMetadata(NSString* why);

    // An asset for a file URL. Nothing is read yet, and nothing says whether the file is a media file.
    static AVAsset assetWithURL(const NSURL& url);

    // The formats of which the file holds items, AVMetadataFormat...
    NSArray availableMetadataFormats();

    // The items that have a key of the common space, with that key, in the order of the file.
    std::vector<AVMetadataItem> commonMetadata();

    // The items of one format; none for a format that the file does not have.
    std::vector<AVMetadataItem> metadataForFormat(const NSString& format);

private:
    explicit AVAsset(const NSURL& url) : url_(url) {}
    // All items in their own key spaces; read once.
    const std::vector<MediaItem>& items();

    NSURL url_;
    std::optional<std::vector<MediaItem>> items_;
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AVAsset.h"

#include "Platform/AVFoundation/AVMetadataKeys.h"
#include "Platform/AVFoundation/CommonKeys.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"

namespace {

struct Space {
    const char16_t* keySpace;
    const char16_t* format; // null for a space without a format of its own
};

// In the order of MediaKeySpace.
constexpr Space kSpaces[] = {
    {AVMetadataKeySpaceCommon, nullptr}, // field names have no space of their own
    {AVMetadataKeySpaceiTunes, AVMetadataFormatiTunesMetadata},
    {AVMetadataKeySpaceQuickTimeMetadata, AVMetadataFormatQuickTimeMetadata},
    {AVMetadataKeySpaceQuickTimeUserData, AVMetadataFormatQuickTimeUserData},
    {AVMetadataKeySpaceISOUserData, AVMetadataFormatISOUserData},
    {AVMetadataKeySpaceID3, AVMetadataFormatID3Metadata},
};

MediaReader mediaReader(NSString* why) {
    static const ModuleEntry<MediaReader> module("AVFoundation");
    if (!module.get() && why) *why = module.why();
    return module.get();
}

NSObject objectOfValue(const MediaValue& value) {
    if (const auto* text = std::get_if<std::u16string>(&value)) return NSString(*text);
    if (const auto* number = std::get_if<int64_t>(&value)) return NSNumber::withInteger(*number);
    return NSData(std::string());
}

} // namespace

bool AVAsset::canReadMetadata(NSString* why) { return mediaReader(why) != nullptr; }

AVAsset AVAsset::assetWithURL(const NSURL& url) { return AVAsset(url); }

const std::vector<MediaItem>& AVAsset::items() {
    if (items_) return *items_;
    items_.emplace();
    const MediaReader read = mediaReader(nullptr);
    if (!read || !url_.isFileURL()) return *items_;
    const FileDescriptor file = openForReading(fileSystemRepresentation(url_.path()));
    if (file) read(file.get(), *items_);
    return *items_;
}

NSArray AVAsset::availableMetadataFormats() {
    std::vector<NSObject> formats;
    for (const Space& space : kSpaces) {
        if (space.format && !metadataForFormat(space.format).empty())
            formats.push_back(NSString(space.format));
    }
    return NSArray(std::move(formats));
}

std::vector<AVMetadataItem> AVAsset::commonMetadata() {
    std::vector<AVMetadataItem> found;
    for (const MediaItem& item : items()) {
        if (const char16_t* key = commonKeyForKey(item.space, item.key))
            found.push_back({key, AVMetadataKeySpaceCommon, objectOfValue(item.value)});
    }
    return found;
}

std::vector<AVMetadataItem> AVAsset::metadataForFormat(const NSString& format) {
    std::vector<AVMetadataItem> found;
    for (const MediaItem& item : items()) {
        const Space& space = kSpaces[size_t(item.space)];
        if (space.format && format.text() == space.format)
            found.push_back({NSString::fromUTF8(item.key), space.keySpace, objectOfValue(item.value)});
    }
    return found;
}

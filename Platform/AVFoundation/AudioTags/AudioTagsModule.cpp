// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for tags that TagLib reads. The library reads in a process of its own: a damaged
// file may make it crash or search for ever.
#include "Platform/AVFoundation/AudioTags/AudioTags.h"
#include "Platform/Foundation/ByteRecord.h"
#include "Platform/Foundation/Containment.h"
#include "Platform/Foundation/Module.h"

namespace {

std::string recordOfTags(int file, AudioTagsKind kind) {
    std::vector<MediaItem> items;
    readAudioTags(file, kind, items);
    ByteRecordWriter record;
    for (const MediaItem& item : items) {
        record.add(std::string_view(item.key));
        record.add(std::u16string_view(std::get<std::u16string>(item.value)));
    }
    return record.take();
}

} // namespace

extern "C" __attribute__((visibility("default"))) void MODULE_ENTRY(int file, AudioTagsKind kind,
                                                                    std::vector<MediaItem>& items) {
    std::string answer;
    if (!runContained([file, kind] { return recordOfTags(file, kind); }, answer)) return;
    for (ByteRecordReader record(answer); !record.atEnd();) {
        std::string key = record.string();
        items.push_back({MediaKeySpace::fieldName, std::move(key), record.wideString()});
    }
}

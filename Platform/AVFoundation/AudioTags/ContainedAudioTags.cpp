// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AudioTags/ContainedAudioTags.h"

#include "Platform/AVFoundation/AudioTags/AudioTags.h"
#include "Platform/Foundation/ByteRecord.h"
#include "Platform/Foundation/Containment.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSLog.h"

namespace {

// Why there is no reader, "" when there is one; then the name and the text of each tag.
std::string recordOfTags(int file, AudioTagsKind kind) {
    ByteRecordWriter record;
    NSString why;
    std::vector<MediaItem> items;
    if (auto read = reinterpret_cast<AudioTagsReader>(moduleEntry("AudioTags", &why)))
        read(file, kind, items);
    record.add(why.text());
    for (const MediaItem& item : items) {
        record.add(std::string_view(item.key));
        record.add(std::get<std::u16string>(item.value));
    }
    return record.take();
}

} // namespace

void readAudioTagsContained(int file, AudioTagsKind kind, std::vector<MediaItem>& items) {
    std::string answer;
    if (!runContained([file, kind] { return recordOfTags(file, kind); }, answer)) return;
    ByteRecordReader record(answer);
    const NSString why(record.wideString());
    if (!why.isEmpty()) NSLog(why);
    while (!record.atEnd()) {
        std::string key = record.string();
        items.push_back({MediaKeySpace::fieldName, std::move(key), record.wideString()});
    }
}

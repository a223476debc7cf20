// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AudioTags/AudioTags.h"

#include "Platform/AVFoundation/AudioTags/BoundedStream.h"
#include "Platform/AVFoundation/LatinText.h"
#include "Platform/Foundation/UnicodeText.h"

#include <apefile.h>
#include <apetag.h>
#include <asffile.h>
#include <id3v1tag.h>
#include <stdexcept>
#include <tpropertymap.h>

namespace {

// The library takes the bytes of ID3v1 for ISO Latin 1 and nothing else.
class OldTagText : public TagLib::ID3v1::StringHandler {
public:
    TagLib::String parse(const TagLib::ByteVector& field) const override {
        const std::string_view bytes(field.data(), field.size());
        const std::u16string text = latinText(bytes.substr(0, bytes.find('\0')));
        return TagLib::String(toUTF8(text), TagLib::String::UTF8).stripWhiteSpace();
    }
};

std::u16string textOf(const TagLib::String& string) { return fromUTF8(string.to8Bit(true)); }

void addProperties(const TagLib::PropertyMap& properties, std::vector<MediaItem>& items) {
    for (const auto& [name, values] : properties) {
        for (const TagLib::String& value : values)
            items.push_back({MediaKeySpace::fieldName, name.to8Bit(), textOf(value)});
    }
}

// Properties of the sound are never asked for, since they would need its data; and asking a file that could
// not be read for its tags ends badly.
void readWindowsMedia(TagLib::IOStream& stream, std::vector<MediaItem>& items) {
    TagLib::ASF::File file(&stream, false);
    if (file.isValid()) addProperties(file.properties(), items);
}

// Of all readers that for Monkey's Audio looks at nothing but the tags, whatever the rest of the file is.
// ID3v1 cuts its texts off, so the other tag follows it.
void readTagsAtTheEnd(TagLib::IOStream& stream, std::vector<MediaItem>& items) {
    TagLib::APE::File file(&stream, false);
    if (!file.isValid()) return;
    if (file.hasID3v1Tag()) addProperties(file.ID3v1Tag()->properties(), items);
    if (file.hasAPETag()) addProperties(file.APETag()->properties(), items);
}

} // namespace

void readAudioTags(int file, AudioTagsKind kind, std::vector<MediaItem>& items) {
    static const OldTagText oldTagText;
    try {
        TagLib::ID3v1::Tag::setStringHandler(&oldTagText);
        BoundedStream stream(file);
        switch (kind) {
        case AudioTagsKind::none: break;
        case AudioTagsKind::windowsMedia: readWindowsMedia(stream, items); break;
        case AudioTagsKind::atTheEnd: readTagsAtTheEnd(stream, items); break;
        }
    } catch (const std::exception&) {
        // A file that the library cannot read has no tags.
    }
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/AudioTags/AudioTags.h"

#include "Platform/AVFoundation/AudioTags/BoundedStream.h"
#include "Platform/AVFoundation/LatinText.h"
#include "Platform/Foundation/UnicodeText.h"

#include <apefile.h>
#include <asffile.h>
#include <id3v1tag.h>
#include <id3v2framefactory.h>
#include <memory>
#include <mpcfile.h>
#include <mpegfile.h>
#include <stdexcept>
#include <tpropertymap.h>
#include <wavpackfile.h>

namespace {

using TagLib::ID3v2::FrameFactory;

// Without the properties of the sound, which would need its data.
std::unique_ptr<TagLib::File> fileOfKind(AudioTagsKind kind, TagLib::IOStream* stream) {
    switch (kind) {
    case AudioTagsKind::none: break;
    case AudioTagsKind::monkeysAudio: return std::make_unique<TagLib::APE::File>(stream, false);
    case AudioTagsKind::musepack: return std::make_unique<TagLib::MPC::File>(stream, false);
    case AudioTagsKind::wavPack: return std::make_unique<TagLib::WavPack::File>(stream, false);
    case AudioTagsKind::windowsMedia: return std::make_unique<TagLib::ASF::File>(stream, false);
    case AudioTagsKind::atTheEnd:
        return std::make_unique<TagLib::MPEG::File>(stream, FrameFactory::instance(), false);
    }
    return nullptr;
}

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

} // namespace

void readAudioTags(int file, AudioTagsKind kind, std::vector<MediaItem>& items) {
    static const OldTagText oldTagText;
    try {
        TagLib::ID3v1::Tag::setStringHandler(&oldTagText);
        BoundedStream stream(file);
        const std::unique_ptr<TagLib::File> tagged = fileOfKind(kind, &stream);
        // Asking a file that could not be read for its tags ends badly.
        if (!tagged || !tagged->isValid()) return;
        const TagLib::PropertyMap properties = tagged->properties();
        for (const auto& [name, values] : properties) {
            for (const TagLib::String& value : values)
                items.push_back({MediaKeySpace::fieldName, name.to8Bit(), textOf(value)});
        }
    } catch (const std::exception&) {
        // A file that the library cannot read has no tags.
    }
}

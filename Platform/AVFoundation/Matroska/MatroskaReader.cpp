// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Matroska/MatroskaReader.h"

#include "Platform/AVFoundation/Matroska/ElementList.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <map>

namespace {

enum : uint32_t {
    kHeader = 0x1A45DFA3,
    kSegment = 0x18538067,
    kSeekHead = 0x114D9B74,
    kSeek = 0x4DBB,
    kSeekIdentifier = 0x53AB,
    kSeekPosition = 0x53AC,
    kInfo = 0x1549A966,
    kTitle = 0x7BA9,
    kTags = 0x1254C367,
    kTag = 0x7373,
    kTargets = 0x63C0,
    kTargetLevel = 0x68CA,
    kTargetTrack = 0x63C5,
    kTargetEdition = 0x63C9,
    kTargetChapter = 0x63C4,
    kTargetAttachment = 0x63C6,
    kSimpleTag = 0x67C8,
    kTagName = 0x45A3,
    kTagString = 0x4487,
};

constexpr unsigned kTopLevelLimit = 200, kTagLimit = 10'000;
constexpr uint64_t kLevelOfPiece = 30, kLevelOfAlbum = 50; // of a track or chapter; of an album or film

struct NamedTag {
    uint64_t level;
    std::string name;
    std::u16string text;
};

class SegmentReader {
public:
    SegmentReader(ByteSource& source, ByteRange segment) : source_(source), segment_(segment) {}

    // What stands in front, what the index points to and, without an index, what comes before too much film.
    void read() {
        ElementList list(source_, segment_);
        unsigned count = 0;
        for (Element element; count < kTopLevelLimit && list.next(element); ++count) {
            readTopLevel(element);
            if (!element.hasLength) break;
        }
        for (const auto& [identifier, position] : index_) {
            Element element;
            if (ElementList(source_, segment_.part(position)).next(element) &&
                element.identifier == identifier)
                readTopLevel(element);
        }
    }

    void addItems(std::vector<MediaItem>& items) {
        std::stable_sort(tags_.begin(), tags_.end(),
                         [](const NamedTag& a, const NamedTag& b) { return a.level > b.level; });
        const bool pieceHasTitle = std::any_of(tags_.begin(), tags_.end(), [](const NamedTag& tag) {
            return tag.level <= kLevelOfPiece && tag.name == "TITLE";
        });
        for (NamedTag& tag : tags_) {
            const bool isAlbum = tag.level >= kLevelOfAlbum && pieceHasTitle && tag.name == "TITLE";
            items.push_back({MediaKeySpace::fieldName, isAlbum ? "ALBUM" : tag.name, std::move(tag.text)});
        }
        if (!title_.empty()) items.push_back({MediaKeySpace::fieldName, "TITLE", title_});
    }

private:
    void readTopLevel(const Element& element) {
        // An element may be met twice, on the way and by the index.
        if (element.identifier == kSeekHead) {
            readIndex(element.body);
        } else if (element.identifier == kInfo && title_.empty()) {
            ElementList list(source_, element.body);
            for (Element child; list.next(child);) {
                if (child.identifier == kTitle) title_ = fromUTF8(text(child.body));
            }
        } else if (element.identifier == kTags && tags_.empty()) {
            ElementList list(source_, element.body);
            for (Element child; list.next(child);) {
                if (child.identifier == kTag) readTag(child.body);
            }
        }
    }

    void readIndex(ByteRange body) {
        ElementList list(source_, body);
        for (Element seek; list.next(seek);) {
            if (seek.identifier != kSeek) continue;
            uint64_t identifier = 0, position = 0;
            ElementList fields(source_, seek.body);
            for (Element field; fields.next(field);) {
                if (field.identifier == kSeekIdentifier) identifier = number(field.body);
                if (field.identifier == kSeekPosition) position = number(field.body);
            }
            if (identifier == kInfo || identifier == kTags) index_[uint32_t(identifier)] = position;
        }
    }

    void readTag(ByteRange body) {
        uint64_t level = kLevelOfAlbum;
        bool isOfAPart = false;
        std::vector<NamedTag> found;
        ElementList list(source_, body);
        for (Element child; list.next(child);) {
            if (child.identifier == kTargets) readTargets(child.body, level, isOfAPart);
            if (child.identifier == kSimpleTag && found.size() + tags_.size() < kTagLimit)
                found.push_back(simpleTag(child.body));
        }
        if (isOfAPart) return;
        for (NamedTag& tag : found) {
            tag.level = level;
            tags_.push_back(std::move(tag));
        }
    }

    // What the tag is said of: the segment, unless one of its parts is named.
    void readTargets(ByteRange body, uint64_t& level, bool& isOfAPart) {
        ElementList list(source_, body);
        for (Element target; list.next(target);) {
            switch (target.identifier) {
            case kTargetLevel: level = number(target.body); break;
            case kTargetTrack:
            case kTargetEdition:
            case kTargetChapter:
            case kTargetAttachment:
                if (number(target.body) != 0) isOfAPart = true;
                break;
            default: break;
            }
        }
    }

    NamedTag simpleTag(ByteRange body) {
        NamedTag tag{};
        ElementList list(source_, body);
        for (Element field; list.next(field);) {
            if (field.identifier == kTagName) tag.name = text(field.body);
            if (field.identifier == kTagString) tag.text = fromUTF8(text(field.body));
        }
        tag.name = uppered(tag.name);
        return tag;
    }

    uint64_t number(ByteRange body) {
        return source_.bigEndian(body.begin, unsigned(std::min<uint64_t>(body.length(), 8)));
    }

    std::string text(ByteRange body) {
        const std::string bytes = allowance_.take(source_, body);
        return bytes.substr(0, bytes.find('\0'));
    }

    ByteSource& source_;
    ByteRange segment_;
    ByteAllowance allowance_;
    std::map<uint32_t, uint64_t> index_; // where the index has elements, from the start of the segment
    std::u16string title_;
    std::vector<NamedTag> tags_;
};

} // namespace

bool readMatroskaFile(ByteSource& source, std::vector<MediaItem>& items) {
    if (source.bigEndian(0, 4) != kHeader) return false;
    ElementList list(source, {0, source.size()});
    for (Element element; list.next(element);) {
        if (element.identifier != kSegment) continue;
        SegmentReader segment(source, element.body);
        segment.read();
        segment.addItems(items);
        break;
    }
    return true;
}

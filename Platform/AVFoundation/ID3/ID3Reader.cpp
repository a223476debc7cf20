// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/ID3/ID3Reader.h"

#include "Platform/AVFoundation/ID3/ID3Text.h"
#include "Platform/AVFoundation/Inflate.h"

#include <algorithm>
#include <optional>

namespace {

constexpr unsigned kHeaderLength = 10, kFrameLimit = 10'000;
constexpr size_t kTagLimit = 16 << 20; // bytes of a tag that must be rewritten
constexpr unsigned kTagIsUnsynchronised = 0x80, kTagIsExtended = 0x40;

// The identifiers of version 2.2 whose successors have a meaning here.
constexpr std::pair<std::string_view, std::string_view> kOldIdentifiers[] = {
    {"TT1", "TIT1"}, {"TT2", "TIT2"}, {"TT3", "TIT3"}, {"TP1", "TPE1"}, {"TCM", "TCOM"}, {"TXT", "TEXT"},
    {"TPB", "TPUB"}, {"TOA", "TOPE"}, {"TCR", "TCOP"}, {"TAL", "TALB"}, {"PIC", "APIC"},
};

bool isIdentifier(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    });
}

// A number of which each byte gives seven bits.
uint64_t syncsafe(uint64_t number) {
    return (number & 0x7F) | (number >> 1 & 0x3F80) | (number >> 2 & 0x1FC000) | (number >> 3 & 0xFE00000);
}

struct Frame {
    std::string identifier; // of version 2.3; "" for one that has no successor
    bool isCompressed = false, isEncrypted = false, isUnsynchronised = false;
    ByteRange body; // without what its flags put in front
};

class FrameList {
public:
    FrameList(ByteSource& source, ByteRange frames, unsigned version)
        : source_(source), rest_(frames), version_(version) {}

    bool next(Frame& frame) {
        const unsigned nameLength = version_ == 2 ? 3 : 4, headerLength = version_ == 2 ? 6 : 10;
        if (rest_.length() <= headerLength || ++count_ > kFrameLimit) return false;
        std::string name = source_.bytes(rest_.begin, nameLength);
        // Tags that were converted may keep the old names, padded.
        if (name.size() == 4 && (name[3] == '\0' || name[3] == ' ')) name.resize(3);
        if (!isIdentifier(name)) return false;
        frame = {};
        frame.identifier = name.size() == 3 ? successor(name) : name;
        const uint64_t length = frameLength(nameLength);
        frame.body = rest_.part(headerLength, length);
        if (version_ > 2) applyFlags(frame, unsigned(source_.bigEndian(rest_.begin + 8, 2)));
        rest_ = rest_.part(headerLength + length);
        return true;
    }

private:
    static std::string successor(std::string_view name) {
        for (const auto& [old, current] : kOldIdentifiers) {
            if (old == name) return std::string(current);
        }
        return {};
    }

    uint64_t frameLength(unsigned nameLength) {
        const uint64_t number = source_.bigEndian(rest_.begin + nameLength, version_ == 2 ? 3 : 4);
        if (version_ != 4 || number < 0x80) return number;
        // Version 2.4 has syncsafe lengths, but not all of its writers: what leads to another frame is right.
        return (number & 0x80808080) || (!leadsOn(syncsafe(number)) && leadsOn(number)) ? number
                                                                                        : syncsafe(number);
    }

    bool leadsOn(uint64_t length) {
        const ByteRange next = rest_.part(kHeaderLength + length);
        return kHeaderLength + length <= rest_.length() &&
               (next.length() < kHeaderLength || isIdentifier(source_.bytes(next.begin, 4)) ||
                source_.bigEndian(next.begin, 4) == 0);
    }

    void applyFlags(Frame& frame, unsigned flags) const {
        const bool isNew = version_ == 4;
        frame.isCompressed = flags & (isNew ? 0x08 : 0x80);
        frame.isEncrypted = flags & (isNew ? 0x04 : 0x40);
        frame.isUnsynchronised = isNew && flags & 0x02;
        unsigned extra = 0;
        if (flags & (isNew ? 0x40 : 0x20)) extra += 1;             // a group
        if (isNew ? flags & 0x01 : frame.isCompressed) extra += 4; // the length before compression
        frame.body = frame.body.part(extra);
    }

    ByteSource& source_;
    ByteRange rest_;
    unsigned version_, count_ = 0;
};

void addFrame(ByteSource& source, const Frame& frame, unsigned version, bool isUnsynchronised,
              ByteAllowance& allowance, std::vector<MediaItem>& items) {
    if (frame.identifier == "APIC") items.push_back({MediaKeySpace::id3, frame.identifier, OpaqueValue()});
    if (frame.identifier.empty() || frame.identifier[0] != 'T' || frame.identifier == "TXXX" ||
        frame.isEncrypted)
        return;
    std::string body = allowance.take(source, frame.body);
    if (isUnsynchronised || frame.isUnsynchronised) body = withoutUnsynchronisation(body);
    if (frame.isCompressed) {
        body = inflated(body, size_t(allowance.left()));
        allowance.spend(body.size());
    }
    std::vector<std::u16string> strings = stringsOfTextFrame(body);
    // Before version 4 a null ended the text, whatever came behind it.
    if (version < 4 && strings.size() > 1) strings.resize(1);
    for (std::u16string& text : strings)
        items.push_back({MediaKeySpace::id3, frame.identifier, std::move(text)});
}

void readFrames(ByteSource& source, ByteRange frames, unsigned version, bool isUnsynchronised,
                std::vector<MediaItem>& items) {
    FrameList list(source, frames, version);
    ByteAllowance allowance;
    for (Frame frame; list.next(frame);) addFrame(source, frame, version, isUnsynchronised, allowance, items);
}

// How long the extended header is, if the tag has one.
uint64_t extendedHeaderLength(ByteSource& source, ByteRange body, unsigned version) {
    const uint64_t length = source.bigEndian(body.begin, 4);
    return version == 4 ? syncsafe(length) : length + 4;
}

} // namespace

uint64_t readID3Tag(ByteSource& source, ByteRange range, std::vector<MediaItem>& items) {
    if (range.length() < kHeaderLength || source.bytes(range.begin, 3) != "ID3") return 0;
    const auto version = unsigned(source.bigEndian(range.begin + 3, 1));
    const auto flags = unsigned(source.bigEndian(range.begin + 5, 1));
    const uint64_t length = syncsafe(source.bigEndian(range.begin + 6, 4));
    const uint64_t footer = version == 4 && flags & 0x10 ? kHeaderLength : 0;
    ByteRange body = range.part(kHeaderLength, length);
    // The flag for an extended header said "compressed" in version 2.2, by a method that was never defined.
    if (version < 2 || version > 4 || (version == 2 && flags & kTagIsExtended)) return kHeaderLength + length;

    ByteSource* frames = &source;
    std::string rewritten;
    std::optional<MemorySource> memory;
    if (flags & kTagIsUnsynchronised && version < 4) {
        rewritten = withoutUnsynchronisation(
            source.bytes(body.begin, size_t(std::min<uint64_t>(body.length(), kTagLimit))));
        frames = &memory.emplace(rewritten);
        body = {0, rewritten.size()};
    }
    if (flags & kTagIsExtended) body = body.part(extendedHeaderLength(*frames, body, version));
    readFrames(*frames, body, version, version == 4 && flags & kTagIsUnsynchronised, items);
    return kHeaderLength + length + footer;
}

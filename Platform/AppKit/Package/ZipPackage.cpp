// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Package/ZipPackage.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/LittleEndian.h"

#include <algorithm>
#include <memory>
#include <new>
#include <utility>
#include <zlib.h>

namespace {

using namespace std::string_view_literals;

constexpr std::string_view kLocalSignature = "PK\3\4", kDirectorySignature = "PK\1\2",
                           kEndSignature = "PK\5\6";
constexpr std::string_view kLargeEndSignature = "PK\6\6", kLocatorSignature = "PK\6\7";
constexpr std::string_view kDescriptorSignature = "PK\7\10";
constexpr size_t kLocalHeader = 30, kDirectoryHeader = 46, kEndRecord = 22, kLargeEndRecord = 56,
                 kLocator = 20;
constexpr size_t kLongestComment = 0xFFFF;
constexpr uint16_t kLargeExtraField = 1;
constexpr uint32_t kSeeExtraField = 0xFFFFFFFF;
constexpr uint16_t kEncryptedFlag = 1, kDescriptorFlag = 8;
constexpr uint16_t kStored = 0, kDeflated = 8;

bool hasSignature(std::string_view bytes, uint64_t at, std::string_view signature) {
    return slice(bytes, at, signature.size()) == signature;
}

std::string fold(std::string_view name) {
    std::string folded = lowered(name);
    std::replace(folded.begin(), folded.end(), '\\', '/');
    return folded.erase(0, std::min(folded.find_first_not_of('/'), folded.size()));
}

// The large-archive part of an extra field: 64-bit values for those header fields that are all ones, in the
// order of the header.
class LargeFields {
public:
    explicit LargeFields(std::string_view extra) {
        while (extra.size() >= 4) {
            size_t size = uint16At(extra, 2);
            if (uint16At(extra, 0) == kLargeExtraField) {
                values_ = slice(extra, 4, size);
                return;
            }
            extra.remove_prefix(std::min(extra.size(), 4 + size));
        }
    }

    uint64_t value(uint32_t field) {
        if (field != kSeeExtraField || values_.size() < 8) return field;
        uint64_t value = uint64At(values_, 0);
        values_.remove_prefix(8);
        return value;
    }

private:
    std::string_view values_;
};

// Where a directory stands, and how far all offsets are off because of bytes in front of the archive.
struct DirectoryPlace {
    uint64_t offset, size, entries, shift;
};

std::optional<DirectoryPlace> placeDirectory(std::string_view bytes, uint64_t end, uint64_t offset,
                                             uint64_t size, uint64_t entries) {
    if (size <= end && hasSignature(bytes, end - size, kDirectorySignature))
        return DirectoryPlace{end - size, size, entries, end - size - offset};
    if (hasSignature(bytes, offset, kDirectorySignature)) return DirectoryPlace{offset, size, entries, 0};
    return std::nullopt;
}

// The end record whose comment ends with the archive. One inside of it is that of a stored package in a
// package that was cut.
std::optional<uint64_t> findEndRecord(std::string_view bytes) {
    std::string_view tail = bytes.substr(bytes.size() - std::min(bytes.size(), kEndRecord + kLongestComment));
    for (size_t at = tail.size(); at > 0;) {
        at = tail.rfind(kEndSignature, at - 1);
        if (at == std::string_view::npos) break;
        if (at + kEndRecord + uint16At(tail, at + 20) == tail.size()) return bytes.size() - tail.size() + at;
    }
    return std::nullopt;
}

std::optional<DirectoryPlace> findDirectory(std::string_view bytes) {
    std::optional<uint64_t> found = findEndRecord(bytes);
    if (!found) return std::nullopt;
    uint64_t end = *found;
    if (end >= kLocator + kLargeEndRecord && hasSignature(bytes, end - kLocator, kLocatorSignature)) {
        // The record mostly stands right in front of its locator, whatever the locator says of its place.
        for (uint64_t large : {end - kLocator - kLargeEndRecord, uint64At(bytes, end - kLocator + 8)}) {
            if (!hasSignature(bytes, large, kLargeEndSignature)) continue;
            auto place = placeDirectory(bytes, large, uint64At(bytes, large + 48),
                                        uint64At(bytes, large + 40), uint64At(bytes, large + 32));
            if (place) return place;
        }
    }
    return placeDirectory(bytes, end, uint32At(bytes, end + 16), uint32At(bytes, end + 12),
                          uint16At(bytes, end + 10));
}

// Where the bytes of an entry begin whose local header is at `at`.
uint64_t dataOffset(std::string_view bytes, uint64_t at) {
    return at + kLocalHeader + uint16At(bytes, at + 26) + uint16At(bytes, at + 28);
}

// Where an entry ends whose size stands behind it: at its descriptor, which repeats the size, else at the
// next signature of a header.
uint64_t findEntryEnd(std::string_view bytes, uint64_t data) {
    for (size_t at = bytes.find("PK"sv, size_t(data)); at != std::string_view::npos;
         at = bytes.find("PK"sv, at + 2)) {
        if (hasSignature(bytes, at, kLocalSignature) || hasSignature(bytes, at, kDirectorySignature))
            return at;
        if (hasSignature(bytes, at, kDescriptorSignature) && uint32At(bytes, at + 8) == uint32_t(at - data))
            return at;
    }
    return bytes.size();
}

} // namespace

ZipPackage::ZipPackage(std::string_view bytes, uint64_t inflatedLimit)
    : bytes_(bytes), budget_(std::min<uint64_t>(inflatedLimit, bytes.size() * kRatioLimit)) {}

std::optional<ZipPackage> ZipPackage::open(std::string_view bytes, uint64_t inflatedLimit) {
    ZipPackage package(bytes, inflatedLimit);
    if (!package.readDirectory()) package.readLocalHeaders();
    if (package.entries_.empty()) return std::nullopt;
    return package;
}

// Returns true when the directory was whole and right.
bool ZipPackage::readDirectory() {
    std::optional<DirectoryPlace> place = findDirectory(bytes_);
    if (!place || place->size > bytes_.size() - place->offset) return false;
    size_t at = size_t(place->offset), end = at + size_t(place->size);
    uint64_t count = 0;
    bool right = true;
    while (end - at >= kDirectoryHeader && hasSignature(bytes_, at, kDirectorySignature)) {
        right = readDirectoryEntry(at, place->shift) && right;
        at = std::min(at, end);
        ++count;
    }
    // Old writers of large archives let the count overflow.
    return right && at == end && uint16_t(count) == uint16_t(place->entries);
}

// Moves `at` behind the entry. Returns false when the entry is not where the directory says.
bool ZipPackage::readDirectoryEntry(size_t& at, uint64_t shift) {
    size_t nameSize = uint16At(bytes_, at + 28), extraSize = uint16At(bytes_, at + 30);
    LargeFields large(slice(bytes_, at + kDirectoryHeader + nameSize, extraSize));
    large.value(uint32At(bytes_, at + 24));
    uint64_t compressedSize = large.value(uint32At(bytes_, at + 20));
    uint64_t header = large.value(uint32At(bytes_, at + 42)) + shift;
    Entry entry{std::string(slice(bytes_, at + kDirectoryHeader, nameSize)), 0, compressedSize,
                uint16At(bytes_, at + 10), (uint16At(bytes_, at + 8) & kEncryptedFlag) != 0};
    at += kDirectoryHeader + nameSize + extraSize + uint16At(bytes_, at + 32);
    if (!hasSignature(bytes_, header, kLocalSignature)) return false;
    entry.offset = dataOffset(bytes_, header);
    bool inside = entry.offset <= bytes_.size() && compressedSize <= bytes_.size() - entry.offset;
    // Of entries of one name the last is meant: archives are changed by adding to them.
    std::string name = fold(entry.name);
    entries_.insert_or_assign(std::move(name), std::move(entry));
    return inside;
}

void ZipPackage::readLocalHeaders() {
    size_t at = bytes_.find(kLocalSignature);
    while (at != std::string_view::npos && bytes_.size() - at >= kLocalHeader) {
        uint16_t flags = uint16At(bytes_, at + 6), nameSize = uint16At(bytes_, at + 26);
        std::string_view name = slice(bytes_, at + kLocalHeader, nameSize);
        LargeFields large(slice(bytes_, at + kLocalHeader + nameSize, uint16At(bytes_, at + 28)));
        large.value(uint32At(bytes_, at + 22));
        uint64_t size = large.value(uint32At(bytes_, at + 18));
        uint64_t data = std::min<uint64_t>(dataOffset(bytes_, at), bytes_.size());
        bool sizeFollows = (flags & kDescriptorFlag) != 0 && size == 0;
        bool leadsToNext = !sizeFollows && size <= bytes_.size() - data &&
                           (data + size == bytes_.size() || hasSignature(bytes_, data + size, "PK"sv));
        uint64_t end = leadsToNext ? data + size : findEntryEnd(bytes_, data);
        if (sizeFollows) size = end - data;
        entries_.try_emplace(fold(name), Entry{std::string(name), data, size, uint16At(bytes_, at + 8),
                                               (flags & kEncryptedFlag) != 0});
        at = bytes_.find(kLocalSignature, size_t(end));
    }
}

const ZipPackage::Entry* ZipPackage::find(std::string_view name) const {
    auto found = entries_.find(fold(name));
    return found == entries_.end() ? nullptr : &found->second;
}

std::string ZipPackage::findName(const std::function<bool(std::string_view name)>& test) const {
    for (const auto& [folded, entry] : entries_) {
        if (test(entry.name)) return entry.name;
    }
    return {};
}

bool ZipPackage::read(std::string_view name, Deadline& deadline, const Sink& sink) const {
    const Entry* entry = find(name);
    if (entry == nullptr || entry->encrypted) return false;
    std::string_view compressed = slice(bytes_, entry->offset, entry->compressedSize);
    if (entry->method == kStored)
        return copyStored(compressed, deadline, sink) && compressed.size() == entry->compressedSize;
    if (entry->method == kDeflated) return inflate(compressed, deadline, sink);
    return false;
}

std::string ZipPackage::contents(std::string_view name, Deadline& deadline, size_t limit) const {
    std::string all;
    read(name, deadline, [&](std::string_view piece) {
        all.append(piece.substr(0, limit - all.size()));
        return all.size() < limit;
    });
    return all;
}

bool ZipPackage::deliver(std::string_view piece, Deadline& deadline, const Sink& sink) const {
    if (piece.size() > budget_ || deadline.passed()) return false;
    budget_ -= piece.size();
    return sink(piece);
}

bool ZipPackage::copyStored(std::string_view stored, Deadline& deadline, const Sink& sink) const {
    while (!stored.empty()) {
        std::string_view piece = stored.substr(0, kPieceSize);
        if (!deliver(piece, deadline, sink)) return false;
        stored.remove_prefix(piece.size());
    }
    return true;
}

bool ZipPackage::inflate(std::string_view compressed, Deadline& deadline, const Sink& sink) const {
    constexpr size_t kMostInput = size_t(1) << 30; // the library counts in 32 bits
    constexpr int kRawDeflate = -MAX_WBITS;
    z_stream stream{};
    if (inflateInit2(&stream, kRawDeflate) != Z_OK) throw std::bad_alloc();
    std::unique_ptr<z_stream, int (*)(z_stream*)> end(&stream, inflateEnd);

    auto piece = std::make_unique_for_overwrite<char[]>(kPieceSize);
    for (int state = Z_OK; state == Z_OK;) {
        if (stream.avail_in == 0) {
            std::string_view input = compressed.substr(0, kMostInput);
            compressed.remove_prefix(input.size());
            stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
            stream.avail_in = uInt(input.size());
        }
        stream.next_out = reinterpret_cast<Bytef*>(piece.get());
        stream.avail_out = uInt(kPieceSize);
        state = ::inflate(&stream, Z_NO_FLUSH);
        size_t size = kPieceSize - stream.avail_out;
        if (size > 0 && !deliver({piece.get(), size}, deadline, sink)) return false;
        if (state == Z_STREAM_END) return true;
    }
    return false;
}

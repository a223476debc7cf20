// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/CompoundFile/CompoundFile.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/LittleEndian.h"

namespace {

constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr size_t kHeaderTableSectors = 109;
constexpr size_t kEntrySize = 128;
constexpr unsigned kMiniSectorShift = 6;
constexpr size_t kMiniStreamLimit = 4096; // streams below it lie in mini sectors

constexpr uint32_t kSectorLimit = 0xFFFFFFFA; // from here on: the end of a chain, free sectors and the like
constexpr uint32_t kNoEntry = 0xFFFFFFFF;

enum EntryType : uint8_t { kStorage = 1, kStream = 2, kRoot = 5 };

std::string asciiName(std::string_view entry) {
    size_t length = std::min<size_t>(uint16At(entry, 64), 64) / 2;
    std::string name;
    for (size_t i = 0; i < length; ++i) {
        uint16_t unit = uint16At(entry, 2 * i);
        if (unit == 0) break;
        name.push_back(unit < 0x80 ? char(unit) : '?');
    }
    return name;
}

} // namespace

std::optional<CompoundFile> CompoundFile::open(std::string_view bytes) {
    if (bytes.substr(0, kSignature.size()) != kSignature) return std::nullopt;
    CompoundFile file(bytes);
    // Sectors of 4096 bytes came with version 4; other sizes were never written.
    if (uint16At(bytes, 30) == 12) file.sectorShift_ = 12;
    file.readSectorTable();
    file.readDirectory();
    return file;
}

std::string_view CompoundFile::firstSectors() const { return slice(bytes_, size_t(1) << sectorShift_); }

void CompoundFile::readSectorTable() {
    size_t perSector = size_t(1) << (sectorShift_ - 2);
    size_t wanted = sectorCount() / perSector + 1;
    for (size_t i = 0; i < kHeaderTableSectors && tableSectors_.size() < wanted; ++i) {
        tableSectors_.push_back(holds(bytes_, 76 + 4 * i, 4) ? uint32At(bytes_, 76 + 4 * i) : kNoEntry);
    }
    uint32_t sector = uint32At(bytes_, 68);
    // Every sector of the list adds an entry at least, so the loop ends with `wanted`.
    while (sector < kSectorLimit && tableSectors_.size() < wanted) {
        size_t offset = (size_t(sector) + 1) << sectorShift_;
        if (!holds(bytes_, offset, perSector * 4)) break;
        for (size_t i = 0; i + 1 < perSector && tableSectors_.size() < wanted; ++i) {
            tableSectors_.push_back(uint32At(bytes_, offset + 4 * i));
        }
        sector = uint32At(bytes_, offset + 4 * (perSector - 1));
    }
}

uint32_t CompoundFile::nextSector(uint32_t sector) const {
    size_t index = sector >> (sectorShift_ - 2);
    size_t within = sector & ((uint32_t(1) << (sectorShift_ - 2)) - 1);
    if (index >= tableSectors_.size() || tableSectors_[index] >= kSectorLimit) return sector + 1;
    size_t offset = ((size_t(tableSectors_[index]) + 1) << sectorShift_) + 4 * within;
    return holds(bytes_, offset, 4) ? uint32At(bytes_, offset) : sector + 1;
}

uint32_t CompoundFile::nextMiniSector(uint32_t sector) const {
    size_t offset = size_t(sector) * 4;
    return holds(miniTable_, offset, 4) ? uint32At(miniTable_, offset) : sector + 1;
}

// Neighbouring sectors are gathered to one piece, and only several pieces are copied together.
std::string_view CompoundFile::chain(const Sectors& sectors, uint32_t start, uint64_t size) {
    size_t remaining = size_t(std::min<uint64_t>(size, sectors.container.size()));
    std::string assembled;
    size_t pieceStart = 0, pieceLength = 0;
    for (uint32_t sector = start; remaining > 0 && sector < kSectorLimit;) {
        size_t offset = sectors.first + (size_t(sector) << sectors.shift);
        if (offset >= sectors.container.size()) break;
        if (pieceStart + pieceLength != offset) {
            assembled.append(sectors.container, pieceStart, pieceLength);
            pieceStart = offset;
            pieceLength = 0;
        }
        size_t taken = std::min({remaining, size_t(1) << sectors.shift, sectors.container.size() - offset});
        pieceLength += taken;
        remaining -= taken;
        sector = sectors.mini ? nextMiniSector(sector) : nextSector(sector);
    }
    std::string_view piece = slice(sectors.container, pieceStart, pieceLength);
    if (assembled.empty()) return piece;
    assembled.append(piece);
    return assembled_.emplace_back(std::move(assembled));
}

void CompoundFile::readDirectory() {
    std::string_view directory = chain(fileSectors(), uint32At(bytes_, 48), bytes_.size());
    size_t count = directory.size() / kEntrySize;
    auto entryAt = [&](size_t index) { return slice(directory, index * kEntrySize, kEntrySize); };
    bool isWide = sectorShift_ == 12;
    auto describe = [&](std::string_view entry) {
        uint64_t size = isWide ? uint64At(entry, 120) : uint32At(entry, 120);
        return Entry{asciiName(entry), uint32At(entry, 116), size};
    };
    if (count == 0 || uint8At(entryAt(0), 66) != kRoot) {
        directoryIsDamaged_ = true;
        return;
    }
    root_ = describe(entryAt(0));

    // What a storage holds are the nodes of a binary tree, whose order does not matter when all are visited.
    std::vector<bool> visited(count);
    std::vector<std::pair<uint32_t, std::string>> waiting{{uint32At(entryAt(0), 76), ""}};
    while (!waiting.empty()) {
        const auto [index, storage] = std::move(waiting.back());
        waiting.pop_back();
        if (index == kNoEntry) continue;
        if (index >= count) {
            directoryIsDamaged_ = true;
            continue;
        }
        if (visited[index]) continue;
        visited[index] = true;
        std::string_view entry = entryAt(index);
        if (uint8At(entry, 66) == kStream) {
            entries_.push_back(describe(entry));
            entries_.back().name.insert(0, storage);
        } else if (uint8At(entry, 66) == kStorage && storage.empty()) {
            storages_.push_back(asciiName(entry));
            waiting.push_back({uint32At(entry, 76), storages_.back() + "/"});
        }
        waiting.push_back({uint32At(entry, 68), storage});
        waiting.push_back({uint32At(entry, 72), storage});
    }
}

const CompoundFile::Entry* CompoundFile::find(std::string_view name) const {
    for (const Entry& entry : entries_) {
        if (equalIgnoringCase(entry.name, name)) return &entry;
    }
    return nullptr;
}

const CompoundFile::Sectors& CompoundFile::miniSectors() {
    if (!miniSectors_) {
        miniTable_ =
            chain(fileSectors(), uint32At(bytes_, 60), uint64_t(uint32At(bytes_, 64)) << sectorShift_);
        miniSectors_ = Sectors{chain(fileSectors(), root_.start, root_.size), 0, kMiniSectorShift, true};
    }
    return *miniSectors_;
}

std::string_view CompoundFile::stream(std::string_view name) {
    const Entry* entry = find(name);
    if (!entry) return {};
    if (entry->size < kMiniStreamLimit) return chain(miniSectors(), entry->start, entry->size);
    return chain(fileSectors(), entry->start, entry->size);
}

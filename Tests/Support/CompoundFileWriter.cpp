// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/CompoundFileWriter.h"

#include "Tests/Support/LittleEndianWriter.h"

namespace {

enum EntryType { kStorage = 1, kStream = 2, kRoot = 5 };

constexpr size_t kMiniSectorSize = 64, kMiniStreamLimit = 4096;
constexpr size_t kHeaderListSize = 109;

} // namespace

CompoundFileWriter& CompoundFileWriter::stream(std::string name, std::string bytes) {
    entries_.push_back({std::move(name), kStream, kNone, kNone, 0, std::move(bytes)});
    return *this;
}

CompoundFileWriter& CompoundFileWriter::embedded(std::string storage, std::string name, std::string bytes) {
    entries_.push_back({std::move(storage), kStorage, kNone, 1, 0, {}});
    entries_.push_back({std::move(name), kStream, kNone, kNone, 0, std::move(bytes)});
    return *this;
}

CompoundFileWriter& CompoundFileWriter::scattered() {
    isScattered_ = true;
    return *this;
}

uint32_t CompoundFileWriter::addSectors(const std::string& bytes, bool isScattered) {
    if (bytes.empty()) return kEnd;
    std::string padded = bytes;
    padTo(padded, sectorSize());
    auto first = uint32_t(table_.size());
    auto count = uint32_t(padded.size() >> shift_);
    for (uint32_t i = 0; i < count; ++i) {
        uint32_t from = isScattered ? count - 1 - i : i;
        body_ += padded.substr(size_t(from) << shift_, sectorSize());
        if (isScattered) {
            table_.push_back(i == 0 ? kEnd : first + i - 1);
        } else {
            table_.push_back(i + 1 == count ? kEnd : first + i + 1);
        }
    }
    return isScattered ? first + count - 1 : first;
}

void CompoundFileWriter::placeStreams() {
    std::string miniStream, miniTable;
    for (Entry& entry : entries_) {
        if (entry.type != kStream) continue;
        if (entry.bytes.size() >= kMiniStreamLimit) {
            entry.start = addSectors(entry.bytes, isScattered_);
            continue;
        }
        entry.start = entry.bytes.empty() ? kEnd : uint32_t(miniStream.size() / kMiniSectorSize);
        for (size_t done = 0; done < entry.bytes.size(); done += kMiniSectorSize) {
            bool isLast = done + kMiniSectorSize >= entry.bytes.size();
            append32(miniTable, isLast ? kEnd : uint32_t(miniTable.size() / 4 + 1));
        }
        miniStream += entry.bytes;
        padTo(miniStream, kMiniSectorSize);
    }
    Entry root{"Root Entry", kRoot, kNone, entries_.empty() ? kNone : 1, 0, miniStream};
    root.start = addSectors(miniStream, isScattered_);
    entries_.insert(entries_.begin(), root);
    miniTableStart_ = addSectors(miniTable, false);
    miniTableSectors_ = uint32_t((miniTable.size() + sectorSize() - 1) >> shift_);
}

// The root's entries hang on each other by their right hands; a storage's stream follows it.
std::string CompoundFileWriter::directory() const {
    std::string directory;
    for (size_t i = 0; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        bool isInStorage = i > 0 && entries_[i - 1].type == kStorage;
        size_t next = i + (entry.type == kStorage ? 2 : 1);
        bool hasNext = i > 0 && !isInStorage && next < entries_.size();
        std::string bytes;
        for (char c : entry.name) append16(bytes, uint8_t(c));
        bytes.resize(64);
        append16(bytes, unsigned(2 * entry.name.size() + 2));
        append8(bytes, unsigned(entry.type));
        append8(bytes, 1);
        append32(bytes, kNone);
        append32(bytes, hasNext ? uint32_t(next) : kNone);
        append32(bytes, entry.type == kStorage ? uint32_t(i + 1) : entry.child);
        bytes.resize(116);
        append32(bytes, entry.start);
        append32(bytes, uint32_t(entry.bytes.size()));
        append32(bytes, 0);
        directory += bytes;
    }
    return directory;
}

void CompoundFileWriter::addTable(std::string& header) {
    size_t perSector = sectorSize() / 4;
    size_t sectors = table_.size(), tableSectors = 0, listSectors = 0;
    for (size_t total = 0; total != sectors + tableSectors + listSectors;) {
        total = sectors + tableSectors + listSectors;
        tableSectors = (total + perSector - 1) / perSector;
        size_t listed = tableSectors > kHeaderListSize ? tableSectors - kHeaderListSize : 0;
        listSectors = (listed + perSector - 2) / (perSector - 1);
    }
    tableOffset_ = sectorSize() + body_.size();
    table_.insert(table_.end(), tableSectors, kTableSector);
    table_.insert(table_.end(), listSectors, kListSector);
    for (uint32_t next : table_) append32(body_, next);
    size_t used = table_.size() % perSector;
    for (size_t i = used; i > 0 && i < perSector; ++i) append32(body_, kNone);

    put32(header, 44, uint32_t(tableSectors));
    put32(header, 68, listSectors > 0 ? uint32_t(sectors + tableSectors) : kEnd);
    put32(header, 72, uint32_t(listSectors));
    for (size_t i = 0; i < kHeaderListSize; ++i) {
        put32(header, 76 + 4 * i, i < tableSectors ? uint32_t(sectors + i) : kNone);
    }
    for (size_t i = 0, listed = kHeaderListSize; i < listSectors; ++i) {
        for (size_t j = 0; j + 1 < perSector; ++j, ++listed) {
            append32(body_, listed < tableSectors ? uint32_t(sectors + listed) : kNone);
        }
        append32(body_, i + 1 < listSectors ? uint32_t(sectors + tableSectors + i + 1) : kEnd);
    }
}

std::string CompoundFileWriter::finish() {
    std::string header("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    header.resize(sectorSize());
    placeStreams();
    directoryOffset_ = sectorSize() + body_.size();
    uint32_t directoryStart = addSectors(directory(), false);
    put16(header, 24, 0x3E);
    put16(header, 26, shift_ == 12 ? 4 : 3);
    put16(header, 28, 0xFFFE);
    put16(header, 30, shift_);
    put16(header, 32, 6);
    put32(header, 48, directoryStart);
    put32(header, 56, kMiniStreamLimit);
    put32(header, 60, miniTableStart_);
    put32(header, 64, miniTableSectors_);
    addTable(header);
    return header + body_;
}

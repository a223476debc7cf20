// SPDX-License-Identifier: Apache-2.0
//
// The compound file of OLE2: a file system in a file, in which programs of the Office family keep their
// documents.
//
// Streams of the root go by their names, those of its storages by "storage/stream"; deeper ones belong to
// embedded documents and are not found. Sector chains are
// followed as far as the file goes: of a truncated file each stream is readable up to the cut, and where the
// table of the chains itself is cut off, a sector is taken to be followed by its neighbour, as writers lay
// streams out in one piece. Cyclic chains and lying sizes are bounded by the size of the file.
#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class CompoundFile {
public:
    // Empty when the bytes do not begin as a compound file does. `bytes` must outlive the file.
    static std::optional<CompoundFile> open(std::string_view bytes);

    // Names are ASCII here and compared exactly.
    bool contains(std::string_view name) const { return find(name) != nullptr; }

    // The names of the root's storages.
    const std::vector<std::string>& storages() const { return storages_; }

    // The bytes of a stream; a view with a null data() when there is none. Valid as long as the
    // file; a stream that lies in one piece is not copied.
    std::string_view stream(std::string_view name);

    // True when the directory breaks off, so that a missing stream may only have been lost.
    bool directoryIsDamaged() const { return directoryIsDamaged_; }

    // What lies behind the header, sector after sector.
    std::string_view firstSectors() const;

private:
    struct Entry {
        std::string name;
        uint32_t start = 0;
        uint64_t size = 0;
    };
    // A place that is divided into sectors, with the table that links them.
    struct Sectors {
        std::string_view container;
        size_t first = 0; // offset of sector 0
        unsigned shift = 0;
        bool mini = false;
    };

    explicit CompoundFile(std::string_view bytes) : bytes_(bytes) {}

    void readSectorTable();
    void readDirectory();
    const Entry* find(std::string_view name) const;
    uint32_t nextSector(uint32_t sector) const;
    uint32_t nextMiniSector(uint32_t sector) const;
    std::string_view chain(const Sectors& sectors, uint32_t start, uint64_t size);
    Sectors fileSectors() const { return {bytes_, size_t(1) << sectorShift_, sectorShift_, false}; }
    const Sectors& miniSectors();
    size_t sectorCount() const { return bytes_.size() >> sectorShift_; }

    std::string_view bytes_;
    unsigned sectorShift_ = 9;
    std::vector<uint32_t> tableSectors_; // the sectors that hold the sector table
    std::vector<Entry> entries_;         // the streams
    std::vector<std::string> storages_;
    Entry root_; // its "stream" holds the mini sectors
    std::optional<Sectors> miniSectors_;
    std::string_view miniTable_;
    bool directoryIsDamaged_ = false;
    std::list<std::string> assembled_; // streams that did not lie in one piece
};

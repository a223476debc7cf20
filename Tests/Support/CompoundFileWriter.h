// SPDX-License-Identifier: Apache-2.0
//
// Makes compound files for tests. Sectors lie in this order: the streams, the mini stream, the mini sector
// table, the directory, the sector table, its list.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CompoundFileWriter {
public:
    explicit CompoundFileWriter(unsigned sectorShift = 9) : shift_(sectorShift) {}

    CompoundFileWriter& stream(std::string name, std::string bytes);
    // A stream of a storage of the root.
    CompoundFileWriter& embedded(std::string storage, std::string name, std::string bytes);
    // Lays the sectors of each stream in reverse order.
    CompoundFileWriter& scattered();

    std::string finish();

    // Where things came to lie, for tests that damage them: offsets in the finished file.
    size_t directoryOffset() const { return directoryOffset_; }
    size_t tableOffset() const { return tableOffset_; }

private:
    struct Entry {
        std::string name;
        int type = 0;
        uint32_t right, child, start = 0;
        std::string bytes;
    };
    static constexpr uint32_t kNone = 0xFFFFFFFF, kEnd = 0xFFFFFFFE, kTableSector = 0xFFFFFFFD,
                              kListSector = 0xFFFFFFFC;

    size_t sectorSize() const { return size_t(1) << shift_; }
    uint32_t addSectors(const std::string& bytes, bool isScattered);
    void placeStreams();
    std::string directory() const;
    void addTable(std::string& header);

    unsigned shift_;
    bool isScattered_ = false;
    std::vector<Entry> entries_;
    std::string body_;            // all sectors
    std::vector<uint32_t> table_; // what follows each sector
    uint32_t miniTableStart_ = kEnd, miniTableSectors_ = 0;
    size_t directoryOffset_ = 0, tableOffset_ = 0;
};

// SPDX-License-Identifier: Apache-2.0
//
// Counts the items of a document's lists in reading order and writes their markers.
#pragma once

#include "Platform/AppKit/Word/FontTable.h"
#include "Platform/AppKit/Word/ListTable.h"
#include "Platform/AppKit/Word/Modifiers.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Word {

class ListNumbering {
public:
    // All must outlive the numbering. The tables of lists are read when the first item comes.
    ListNumbering(const FileInformation& information, std::string_view tableStream, FontTable& fonts)
        : information_(information), tableStream_(tableStream), fonts_(fonts) {}

    // Counts a paragraph and gives its marker: "" when it is no item of a list or its level has no marker. To
    // be asked for every paragraph, as in old documents others end a list.
    std::u16string nextMarker(const ListMembership& membership);

private:
    struct Counters {
        std::array<uint32_t, kListLevels> numbers{};
        std::array<bool, kListLevels> started{};
    };

    void readLists();
    const ListLevel* levelOf(const ListOverride& chosen, size_t level) const;
    uint32_t startOf(const ListOverride& chosen, size_t level) const;
    void count(uint16_t number, const ListOverride& chosen, size_t level);
    std::u16string marker(const ListOverride& chosen, const ListLevel& format);
    std::u16string nextOldMarker(const ListMembership& membership);

    const FileInformation& information_;
    std::string_view tableStream_;
    FontTable& fonts_;
    std::optional<ListTable> lists_;
    std::vector<Counters> counters_;      // of each list
    std::vector<uint16_t> startsApplied_; // of each override: a bit for each level whose own start was used
    uint32_t oldNumber_ = 0;              // of the last item of an old document's list
};

} // namespace Word

// SPDX-License-Identifier: Apache-2.0
//
// The lists of a document: for each level how its items are numbered and marked. Paragraphs name a list
// through an override, which may change a list's levels and where they start.
#pragma once

#include "Platform/AppKit/Word/FileInformation.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace Word {

constexpr size_t kListLevels = 9;

struct ListLevel {
    uint32_t start = 1;
    uint8_t format = 0;          // see NumberCode.h
    bool isLegal = false;        // all numbers are shown in digits
    uint8_t restartLimit = 0;    // an item of a level below this one restarts the numbering
    std::string_view characters; // modifiers of the marker's characters
    std::string_view text;       // UTF-16; 0 to 8 stand for the numbers of levels
};

struct ListOverride {
    struct Level {
        uint8_t level = 0;
        std::optional<uint32_t> start;
        std::optional<ListLevel> format;
    };

    size_t list = 0; // index of the list in the table
    std::vector<Level> levels;

    const Level* find(size_t level) const;
};

class ListTable {
public:
    ListTable(const FileInformation& information, std::string_view tableStream);

    size_t listCount() const { return lists_.size(); }
    size_t overrideCount() const { return overrides_.size(); }

    // Null for an override that does not exist or names no list of the table. `number` counts from 1.
    const ListOverride* findOverride(uint16_t number) const;

    // A list's level; the list must exist. A level past the last one is the last one, null when there is
    // none.
    const ListLevel* level(size_t list, size_t level) const;

private:
    struct List {
        uint32_t identifier = 0;
        size_t firstLevel = 0, levelCount = 0;
    };

    void readLists(std::string_view stream);
    void readOverrides(std::string_view stream);

    std::vector<List> lists_;
    std::vector<ListLevel> levels_;
    std::vector<ListOverride> overrides_;
};

} // namespace Word

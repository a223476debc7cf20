// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/ListTable.h"

#include "Platform/Foundation/LittleEndian.h"

#include <utility>

namespace Word {

namespace {

constexpr size_t kListSize = 28, kLevelSize = 28, kOverrideSize = 16, kLevelOverrideSize = 8;
constexpr uint8_t kSimpleList = 0x01;
constexpr uint8_t kLegal = 0x04, kRestartsByLimit = 0x08;
constexpr uint8_t kLevelMask = 0x0F, kHasStart = 0x10, kHasFormat = 0x20;

// Reads the level at `offset` and moves past it. False when it is cut off.
bool readLevel(std::string_view stream, size_t& offset, size_t number, ListLevel& level) {
    if (!holds(stream, offset, kLevelSize)) return false;
    std::string_view head = slice(stream, offset, kLevelSize);
    uint8_t flags = uint8At(head, 5);
    level.start = uint32At(head, 0);
    level.format = uint8At(head, 4);
    level.isLegal = flags & kLegal;
    level.restartLimit = flags & kRestartsByLimit ? uint8At(head, 26) : uint8_t(number);
    size_t charactersSize = uint8At(head, 24), paragraphSize = uint8At(head, 25);
    offset += kLevelSize + paragraphSize;
    level.characters = slice(stream, offset, charactersSize);
    offset += charactersSize;
    size_t textSize = 2 * size_t(uint16At(stream, offset));
    level.text = slice(stream, offset + 2, textSize);
    offset += 2 + textSize;
    return true;
}

bool readLevelOverride(std::string_view stream, size_t& offset, ListOverride::Level& level) {
    if (!holds(stream, offset, kLevelOverrideSize)) return false;
    uint8_t flags = uint8At(stream, offset + 4);
    level.level = flags & kLevelMask;
    if (flags & kHasStart) level.start = uint32At(stream, offset);
    offset += kLevelOverrideSize;
    if (flags & kHasFormat) {
        level.format.emplace();
        if (!readLevel(stream, offset, level.level, *level.format)) return false;
        if (level.start) level.start = level.format->start;
    }
    return true;
}

} // namespace

const ListOverride::Level* ListOverride::find(size_t level) const {
    for (const Level& candidate : levels) {
        if (candidate.level == level) return &candidate;
    }
    return nullptr;
}

ListTable::ListTable(const FileInformation& information, std::string_view tableStream) {
    if (!information.table(Table::lists, tableStream).empty()) {
        readLists(information.fromTable(Table::lists, tableStream));
    }
    readOverrides(information.table(Table::listOverrides, tableStream));
}

// The levels of all lists follow the lists themselves, past what is declared as the table.
void ListTable::readLists(std::string_view stream) {
    size_t count = std::min<size_t>(uint16At(stream, 0), stream.size() / kListSize);
    size_t offset = 2 + count * kListSize;
    lists_.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        std::string_view head = slice(stream, 2 + i * kListSize, kListSize);
        List list{uint32At(head, 0), levels_.size(), 0};
        size_t levels = uint8At(head, 26) & kSimpleList ? 1 : kListLevels;
        for (size_t number = 0; number < levels; ++number) {
            ListLevel level;
            if (!readLevel(stream, offset, number, level)) break;
            levels_.push_back(level);
            ++list.levelCount;
        }
        lists_.push_back(list);
    }
}

// The changes of levels follow all overrides, in their order.
void ListTable::readOverrides(std::string_view stream) {
    size_t count = std::min<size_t>(uint32At(stream, 0), stream.size() / kOverrideSize);
    size_t offset = 4 + count * kOverrideSize;
    overrides_.reserve(count);
    std::vector<std::pair<uint32_t, size_t>> byIdentifier;
    for (size_t i = 0; i < lists_.size(); ++i) byIdentifier.emplace_back(lists_[i].identifier, i);
    std::sort(byIdentifier.begin(), byIdentifier.end());
    for (size_t i = 0; i < count; ++i) {
        std::string_view head = slice(stream, 4 + i * kOverrideSize, kOverrideSize);
        ListOverride& added = overrides_.emplace_back();
        uint32_t identifier = uint32At(head, 0);
        auto list =
            std::lower_bound(byIdentifier.begin(), byIdentifier.end(), std::pair(identifier, size_t(0)));
        bool isThere = list != byIdentifier.end() && list->first == identifier;
        added.list = isThere ? list->second : lists_.size();
        offset += 4;
        for (unsigned left = uint8At(head, 12); left > 0; --left) {
            ListOverride::Level level;
            if (!readLevelOverride(stream, offset, level)) break;
            added.levels.push_back(level);
        }
    }
}

const ListOverride* ListTable::findOverride(uint16_t number) const {
    if (number == 0 || number > overrides_.size()) return nullptr;
    const ListOverride& found = overrides_[number - 1u];
    return found.list < lists_.size() ? &found : nullptr;
}

const ListLevel* ListTable::level(size_t list, size_t level) const {
    const List& found = lists_[list];
    if (found.levelCount == 0) return nullptr;
    return &levels_[found.firstLevel + std::min(level, found.levelCount - 1)];
}

} // namespace Word

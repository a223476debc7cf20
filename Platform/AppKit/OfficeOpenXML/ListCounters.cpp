// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OfficeOpenXML/ListCounters.h"

namespace OfficeOpenXML {

namespace {

constexpr int kLargestNumber = 1'000'000'000;

bool restarts(const ListLevel& deeper, int level) {
    return !deeper.restartedBy || level < *deeper.restartedBy;
}

} // namespace

void ListCounters::advance(Numbers& numbers, const List& list, int listID, const ListLevel& level) {
    std::optional<int>& number = numbers[size_t(level.index)];
    int start = level.start;
    for (const List::Override& own : list.overrides) {
        if (own.index != level.index || !own.start) continue;
        start = *own.start;
        if (listID <= kLargestNumber / NumberingPart::kLevels &&
            startedOverrides_.insert(listID * NumberingPart::kLevels + level.index).second)
            number.reset();
    }
    // An item without items of the levels above it begins those, too.
    for (int i = 0; i < level.index; ++i) {
        const ListLevel* above = lists_.level(list, i);
        if (!numbers[size_t(i)] && above != nullptr) numbers[size_t(i)] = above->start;
    }
    number = !number ? start : *number < kLargestNumber ? *number + 1 : *number;
    for (int i = level.index + 1; i < NumberingPart::kLevels; ++i) {
        const ListLevel* deeper = lists_.level(list, i);
        if (deeper == nullptr || restarts(*deeper, level.index)) numbers[size_t(i)].reset();
    }
}

std::u16string ListCounters::nextMarker(int listID, int levelIndex) {
    const List* list = lists_.list(listID);
    const ListLevel* level = list != nullptr ? lists_.level(*list, levelIndex) : nullptr;
    if (level == nullptr) return {};
    Numbers& numbers = numbers_[list->abstractID];
    advance(numbers, *list, listID, *level);
    if (level->isBullet) return level->text;

    std::u16string marker;
    for (size_t i = 0; i < level->text.size(); ++i) {
        char16_t c = level->text[i], digit = i + 1 < level->text.size() ? level->text[i + 1] : u'\0';
        if (c != u'%' || digit < u'1' || digit > u'9') {
            marker += c;
            continue;
        }
        ++i;
        int shown = digit - u'1';
        const ListLevel* shownLevel = lists_.level(*list, shown);
        if (shownLevel == nullptr) continue;
        int number = numbers[size_t(shown)].value_or(shownLevel->start);
        appendNumber(marker, number, level->isLegal ? NumberFormat() : shownLevel->format);
    }
    return marker;
}

} // namespace OfficeOpenXML

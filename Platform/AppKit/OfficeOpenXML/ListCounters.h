// SPDX-License-Identifier: Apache-2.0
//
// Counts the items of the lists of one story and makes their markers.
#pragma once

#include "Platform/AppKit/OfficeOpenXML/NumberingPart.h"

#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace OfficeOpenXML {

class ListCounters {
public:
    // The lists must outlive the counters.
    explicit ListCounters(const NumberingPart& lists) : lists_(lists) {}

    // Counts one more item and gives its marker; "" when there is no such list or its level has none.
    std::u16string nextMarker(int listID, int levelIndex);

private:
    // By level; a level without a value starts anew with its next item.
    using Numbers = std::array<std::optional<int>, NumberingPart::kLevels>;

    void advance(Numbers& numbers, const List& list, int listID, const ListLevel& level);

    const NumberingPart& lists_;
    std::unordered_map<int, Numbers> numbers_; // by the definition of the lists
    std::unordered_set<int> startedOverrides_; // list and level whose own start has been used
};

} // namespace OfficeOpenXML

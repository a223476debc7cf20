// SPDX-License-Identifier: Apache-2.0
//
// The lists of a document: for each level of each list how its items are numbered and what stands in front of
// them.
#pragma once

#include "Platform/AppKit/NumberFormat.h"
#include "Platform/AppKit/OfficeOpenXML/Part.h"
#include "Platform/AppKit/OfficeOpenXML/StylesPart.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace OfficeOpenXML {

struct ListLevel {
    int index = 0; // from 0
    int start = 0;
    NumberFormat format;
    bool isBullet = false; // the text stands without numbers
    std::u16string text;   // with %1 to %9 for the numbers of the levels
    std::optional<int>
        restartedBy;            // 0: never; n: by items of the levels before n, from 1; else by any before
    bool isLegal = false;       // all numbers are written as decimals
    std::string paragraphStyle; // whose paragraphs are items of this level
};

// A definition that several lists can share, which then count on in one another.
struct AbstractList {
    std::vector<ListLevel> levels;
    std::string styleLink;       // the numbering style that has the levels, if they are not here
    std::optional<int> linkedID; // the definition of that style's list
};

struct List {
    struct Override {
        int index = 0;
        std::optional<int> start;
        std::optional<ListLevel> level;
    };
    int abstractID = 0;
    std::vector<Override> overrides;
};

class NumberingPart {
public:
    static constexpr int kLevels = 9;

    // The styles are needed for lists that are defined by one; they are not kept.
    NumberingPart(const ZipPackage& package, std::string_view name, const StylesPart& styles,
                  Deadline& deadline);

    // Null when there is no such list.
    const List* list(int id) const;
    // Null when there is no such level.
    const ListLevel* level(const List& list, int index) const;
    // The level of a list whose items are the paragraphs of a style.
    std::optional<int> levelOfStyle(int id, std::string_view style) const;

private:
    class Handler;

    void followStyleLinks(const StylesPart& styles);

    std::unordered_map<int, AbstractList> abstractLists_;
    std::unordered_map<int, List> lists_;
};

} // namespace OfficeOpenXML

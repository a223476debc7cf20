// SPDX-License-Identifier: Apache-2.0
//
// The markers of list items and headings: which list and level a paragraph stands in, how its number follows
// from those before, and how the list's style shows it.
#pragma once

#include "Platform/AppKit/OpenDocument/StyleBook.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace OpenDocument {

class ListNumbering {
public:
    // How many lists, by identifier and by style, can be continued; far more than writers make.
    static constexpr size_t kSequenceLimit = 1 << 16;

    // The styles must outlive the numbering.
    explicit ListNumbering(const StyleBook& styles) : styles_(styles) {}

    struct ListStart {
        std::string_view style, id, continuedID;
        std::optional<bool> continuesPrevious;
    };
    void beginList(const ListStart& start);
    void endList();

    void beginItem(std::optional<int> start, std::string_view styleOverride);
    // An item without a marker.
    void beginHeader();

    // A paragraph that is a list item in itself; endList() ends it. Levels begin with 1.
    void beginNumberedParagraph(const ListStart& list, int level, std::optional<int> start);

    // Lists of a text box or a note do not belong to the one around it.
    void beginStory() { stories_.push_back(lists_.size()); }
    void endStory();

    bool isInList() const { return lists_.size() > storyBase(); }
    // The marker for the paragraph that begins now: the first of its item has one. May be empty. The style is
    // the one that the paragraph's own style names, for lists that name none.
    std::u16string takeMarker(std::string_view paragraphListStyle);

    // The marker of a heading outside lists.
    std::u16string headingMarker(int level, bool restarts, std::optional<int> start);

private:
    // A run of numbers that several lists can share.
    struct Sequence {
        std::string style;
        std::array<std::optional<int>, ListStyle::kLevels> numbers; // of the last items
        std::array<bool, ListStyle::kLevels> isOver{};              // an item of a level above came after

        void advance(size_t level, std::optional<int> start, const ListStyle* style);
    };
    struct OpenList {
        std::shared_ptr<Sequence> sequence;
        std::string style;
        size_t level = 0; // from 0
        // Of the item whose first paragraph is to come:
        bool markerWaits = false;
        std::string itemStyle;
        std::optional<int> itemStart;
    };

    using SequenceTable = std::unordered_map<std::string, std::shared_ptr<Sequence>>;

    size_t storyBase() const { return stories_.empty() ? 0 : stories_.back(); }
    void beginNestedList(const ListStart& start);
    std::shared_ptr<Sequence> sequenceFor(const ListStart& start) const;
    static void remember(SequenceTable& table, std::string_view key,
                         const std::shared_ptr<Sequence>& sequence);
    std::u16string marker(const ListStyle& style, const Sequence& sequence, size_t level) const;

    const StyleBook& styles_;
    std::vector<OpenList> lists_;
    std::vector<size_t> stories_; // how many lists were open when each began
    SequenceTable byID_, lastOfStyle_;
    Sequence outline_;
};

} // namespace OpenDocument

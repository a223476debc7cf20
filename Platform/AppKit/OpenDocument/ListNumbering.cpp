// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/OpenDocument/ListNumbering.h"

#include <algorithm>

namespace OpenDocument {

namespace {

constexpr size_t kDeepest = ListStyle::kLevels - 1;

// Of a list whose style is not in the document.
constexpr char16_t kDefaultBullet = u'\u2022';

size_t levelIndex(int level) { return size_t(std::clamp(level, 1, ListStyle::kLevels)) - 1; }

} // namespace

void ListNumbering::Sequence::advance(size_t level, std::optional<int> start, const ListStyle* listStyle) {
    auto first = [&](size_t i) { return listStyle == nullptr ? 1 : listStyle->levels[i].start; };
    for (size_t i = 0; i < level; ++i) {
        if (numbers[i] && !isOver[i]) continue;
        numbers[i] = first(i);
        isOver[i] = false;
    }
    if (isOver[level]) numbers[level].reset();
    numbers[level] = start ? *start : numbers[level] ? *numbers[level] + 1 : first(level);
    isOver[level] = false;
    std::fill(isOver.begin() + ptrdiff_t(level) + 1, isOver.end(), true);
}

std::shared_ptr<ListNumbering::Sequence> ListNumbering::sequenceFor(const ListStart& start) const {
    if (!start.continuedID.empty()) {
        auto found = byID_.find(std::string(start.continuedID));
        if (found != byID_.end()) return found->second;
    }
    if (start.continuesPrevious.value_or(false)) {
        auto found = lastOfStyle_.find(std::string(start.style));
        if (found != lastOfStyle_.end()) return found->second;
    }
    auto sequence = std::make_shared<Sequence>();
    sequence->style = start.style;
    return sequence;
}

void ListNumbering::remember(SequenceTable& table, std::string_view key,
                             const std::shared_ptr<Sequence>& sequence) {
    if (!key.empty() && table.size() < kSequenceLimit) table[std::string(key)] = sequence;
}

void ListNumbering::beginList(const ListStart& start) {
    if (isInList()) return beginNestedList(start);
    OpenList list;
    list.sequence = sequenceFor(start);
    list.style = start.style.empty() ? list.sequence->style : start.style;
    remember(byID_, start.id, list.sequence);
    lists_.push_back(std::move(list));
}

void ListNumbering::beginNestedList(const ListStart& start) {
    OpenList& outer = lists_.back();
    outer.markerWaits = false;
    OpenList list;
    list.sequence = outer.sequence;
    list.level = std::min(outer.level + 1, kDeepest);
    list.style = start.style.empty() ? outer.style : start.style;
    if (start.continuesPrevious) {
        bool continues = *start.continuesPrevious;
        if (!continues) list.sequence->numbers[list.level].reset();
        list.sequence->isOver[list.level] = !continues;
    }
    lists_.push_back(std::move(list));
}

void ListNumbering::endList() {
    if (!isInList()) return;
    auto sequence = std::move(lists_.back().sequence);
    lists_.pop_back();
    if (!isInList()) remember(lastOfStyle_, sequence->style, sequence);
}

void ListNumbering::beginItem(std::optional<int> start, std::string_view styleOverride) {
    if (!isInList()) return;
    OpenList& list = lists_.back();
    list.markerWaits = true;
    list.itemStart = start;
    list.itemStyle = styleOverride;
}

void ListNumbering::beginHeader() {
    if (isInList()) lists_.back().markerWaits = false;
}

void ListNumbering::beginNumberedParagraph(const ListStart& list, int level, std::optional<int> start) {
    OpenList open;
    open.sequence = sequenceFor(list);
    open.style = list.style.empty() ? open.sequence->style : list.style;
    open.level = levelIndex(level);
    remember(byID_, list.id, open.sequence);
    lists_.push_back(std::move(open));
    beginItem(start, {});
}

void ListNumbering::endStory() {
    lists_.resize(std::min(lists_.size(), storyBase()));
    if (!stories_.empty()) stories_.pop_back();
}

std::u16string ListNumbering::takeMarker(std::string_view paragraphListStyle) {
    if (!isInList() || !lists_.back().markerWaits) return {};
    OpenList& list = lists_.back();
    list.markerWaits = false;
    std::string_view name = list.style.empty() ? paragraphListStyle : list.style;
    if (!list.itemStyle.empty()) name = list.itemStyle;
    const ListStyle* style = styles_.listStyle(name);
    list.sequence->advance(list.level, list.itemStart, style);
    return style == nullptr ? std::u16string(1, kDefaultBullet) : marker(*style, *list.sequence, list.level);
}

std::u16string ListNumbering::headingMarker(int level, bool restarts, std::optional<int> start) {
    size_t index = levelIndex(level);
    const ListStyle& style = styles_.outlineStyle();
    if (restarts) outline_.numbers[index].reset();
    outline_.advance(index, start, &style);
    // A level that shows no number shows nothing.
    return !style.levels[index].showsNumber() ? std::u16string() : marker(style, outline_, index);
}

std::u16string ListNumbering::marker(const ListStyle& style, const Sequence& sequence, size_t level) const {
    const ListLevel& shown = style.levels[level];
    if (shown.kind == ListLevel::Kind::undefined) return {};
    std::u16string text = shown.prefix;
    if (shown.kind == ListLevel::Kind::bullet) {
        const SymbolFont symbols = styles_.symbolFontOfText(shown.textStyle);
        for (char16_t unit : shown.bullet) text += signOf(symbols, unit);
        return text + shown.suffix;
    }

    size_t count = size_t(std::clamp(shown.displayLevels, 1, int(level) + 1));
    bool isFirst = true;
    for (size_t i = level + 1 - count; i <= level && shown.showsNumber(); ++i) {
        const ListLevel& part = style.levels[i];
        if (part.kind != ListLevel::Kind::number || !part.showsNumber()) continue;
        if (!isFirst) text += u'.';
        isFirst = false;
        appendNumber(text, sequence.numbers[i].value_or(part.start), part.format);
    }
    return text + shown.suffix;
}

} // namespace OpenDocument

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Word/FormattingPages.h"

#include "Platform/Foundation/LittleEndian.h"

namespace Word {

namespace {

constexpr size_t kPageSize = 512;
constexpr size_t kCountOffset = kPageSize - 1;
constexpr uint32_t kPageNumberMask = 0x3FFFFF;
constexpr uint32_t kNowhere = 0xFFFFFFFF;
constexpr uint16_t kDefaultStyle = 0;

} // namespace

FormattingPages::FormattingPages(Kind kind, const FileInformation& information, std::string_view mainStream,
                                 std::string_view tableStream)
    : kind_(kind), isOld_(information.isOld), mainStream_(mainStream) {
    bool ofCharacters = kind == Kind::characters;
    Table table = ofCharacters ? Table::characterPages : Table::paragraphPages;
    listPages(information.positionTable(table, isOld_ ? 2 : 4, tableStream));
    // Word 6 left pages out of the table when memory was short; they still lie one after another.
    size_t count = ofCharacters ? information.characterPageCount : information.paragraphPageCount;
    if (isOld_ && pages_.size() < count) {
        listNeighbouringPages(ofCharacters ? information.firstCharacterPage : information.firstParagraphPage,
                              uint32_t(count));
    }
    auto isBefore = [](const Page& a, const Page& b) { return a.begin < b.begin; };
    if (!std::is_sorted(pages_.begin(), pages_.end(), isBefore)) {
        std::stable_sort(pages_.begin(), pages_.end(), isBefore);
    }
}

void FormattingPages::listPages(const PositionTable& table) {
    pages_.reserve(table.count());
    for (size_t i = 0; i < table.count(); ++i) {
        std::string_view entry = table.entry(i);
        uint32_t number = isOld_ ? uint16At(entry, 0) : uint32At(entry, 0) & kPageNumberMask;
        pages_.push_back({table.position(i), number});
    }
}

void FormattingPages::listNeighbouringPages(uint32_t first, uint32_t count) {
    pages_.clear();
    for (uint32_t number = first; number < first + count; ++number) {
        if (!holds(mainStream_, number * kPageSize, kPageSize)) break;
        pages_.push_back({uint32At(mainStream_, number * kPageSize), number});
    }
}

const FormattingPages::Run& FormattingPages::find(uint32_t offset) {
    if (offset >= run_.begin && offset < run_.end) return run_;
    auto next = std::upper_bound(pages_.begin(), pages_.end(), offset,
                                 [](uint32_t value, const Page& page) { return value < page.begin; });
    uint32_t pageEnd = next == pages_.end() ? kNowhere : next->begin;
    if (next == pages_.begin()) {
        run_ = {offset, pageEnd, kDefaultStyle, {}};
    } else {
        std::string_view page = slice(mainStream_, (next - 1)->number * kPageSize, kPageSize);
        run_ = runInPage(page, offset, pageEnd);
    }
    return run_;
}

FormattingPages::Run FormattingPages::runInPage(std::string_view page, uint32_t offset,
                                                uint32_t pageEnd) const {
    Run run{offset, pageEnd, kDefaultStyle, {}};
    if (page.size() < kPageSize) return run;
    size_t entrySize = kind_ == Kind::characters ? 1 : isOld_ ? 7 : 13;
    size_t count = std::min<size_t>(uint8At(page, kCountOffset), (kCountOffset - 4) / (4 + entrySize));
    auto boundary = [&](size_t index) { return uint32At(page, 4 * index); };
    size_t low = 0, high = count + 1; // the first boundary past the offset
    while (low < high) {
        size_t middle = (low + high) / 2;
        if (boundary(middle) <= offset) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    if (low <= count) run.end = boundary(low);
    if (low == 0 || low > count) return run;
    run.begin = boundary(low - 1);
    size_t place = 2 * size_t(uint8At(page, 4 * (count + 1) + entrySize * (low - 1)));
    if (place != 0) readModifiers(page, place, run);
    return run;
}

void FormattingPages::readModifiers(std::string_view page, size_t place, Run& run) const {
    size_t length = uint8At(page, place);
    if (kind_ == Kind::characters) {
        run.modifiers = slice(page, place + 1, length);
        return;
    }
    size_t begin = place + 1;
    if (isOld_) {
        length = 2 * length;
    } else if (length > 0) {
        length = 2 * length - 1;
    } else {
        length = 2 * size_t(uint8At(page, begin));
        ++begin;
    }
    run.style = uint16At(page, begin);
    if (length > 2) run.modifiers = slice(page, begin + 2, length - 2);
}

} // namespace Word

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLTextWriter.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>

namespace {

constexpr std::string_view kZeroWidthSpace = "\xE2\x80\x8B";

// A run of text without white space and of one kind: ASCII, or all else.
size_t runLength(std::string_view text) {
    const bool ascii = isASCII(text.front());
    size_t length = 1;
    while (length < text.size()) {
        const char c = text[length];
        if (isASCII(c) != ascii) break;
        if (ascii ? isHTMLSpace(c) : text.substr(length).starts_with(kZeroWidthSpace)) break;
        ++length;
    }
    return length;
}

// Characters behind which white space adds nothing.
bool endsLine(char16_t c) {
    return c == u'\n' || c == u'\r' || c == u'\t' || c == u'\f' || c == u'\u0085' || c == kLineBreak ||
           c == u'\u2029';
}

} // namespace

void HTMLTextWriter::collapsed(std::string_view utf8) {
    const bool suppressLeading = (soft_ && last() == u' ') || endsLine(last());
    bool leading = true, space = false;
    const size_t begin = text_.size();
    while (!utf8.empty()) {
        size_t length = 1;
        const bool zeroWidth = utf8.starts_with(kZeroWidthSpace);
        if (isHTMLSpace(utf8.front()) || zeroWidth) {
            if (zeroWidth) length = kZeroWidthSpace.size();
            space = !leading || !suppressLeading;
        } else {
            if (space) text_.push_back(u' ');
            space = leading = false;
            length = runLength(utf8);
            if (isASCII(utf8.front())) {
                text_.append(utf8.begin(), utf8.begin() + std::ptrdiff_t(length));
            } else {
                appendUTF8(text_, utf8.substr(0, length));
            }
        }
        utf8.remove_prefix(length);
    }
    if (space) text_.push_back(u' ');
    if (text_.size() > begin) soft_ = space;
}

void HTMLTextWriter::text(std::string_view utf8, const HTMLTextRules& rules) {
    const size_t begin = text_.size();
    if (rules.keepsSpace) {
        appendUTF8(text_, utf8);
        if (text_.size() > begin) soft_ = false;
    } else {
        collapsed(utf8);
    }
    if (rules.plainNoBreakSpace) {
        std::replace(text_.begin() + std::ptrdiff_t(begin), text_.end(), kNoBreakSpace, u' ');
    }
    transformText(text_, begin, rules.transform);
}

void HTMLTextWriter::newParagraph(bool force, bool suppressSpace) {
    if (!force && last() == kParagraphEnd) return;
    if (suppressSpace && endsInSoftSpace())
        text_.back() = kParagraphEnd;
    else
        text_.push_back(kParagraphEnd);
    soft_ = true;
}

void HTMLTextWriter::endBody() {
    if (!text_.empty() && endsInSoftSpace()) text_.pop_back();
    soft_ = true;
}

void HTMLTextWriter::lineBreak() {
    text_.push_back(kLineBreak);
    soft_ = true;
}

void HTMLTextWriter::tab() {
    text_.push_back(kTab);
    soft_ = true;
}

void HTMLTextWriter::changeOwner() {
    const uint32_t list = openLists_.empty() ? kNoList : openLists_.back();
    if (!owners_.empty() && owners_.back().begin == text_.size())
        owners_.back().list = list;
    else
        owners_.push_back({text_.size(), list});
}

void HTMLTextWriter::openList(HTMLListStyle style, int64_t firstNumber) {
    openLists_.push_back(uint32_t(lists_.size()));
    lists_.push_back({style, firstNumber});
    changeOwner();
}

void HTMLTextWriter::closeList() {
    openLists_.pop_back();
    changeOwner();
}

bool HTMLTextWriter::beginsParagraph(size_t position) const {
    if (position == 0) return true;
    const char16_t before = text_[position - 1];
    return before == u'\n' || before == u'\u2029' || (before == u'\r' && text_[position] != u'\n');
}

std::u16string HTMLTextWriter::finish() && {
    if (owners_.empty()) return std::move(text_);
    std::u16string marked;
    marked.reserve(text_.size() + text_.size() / 8);
    size_t copied = 0;
    for (size_t i = 0; i < owners_.size(); ++i) {
        if (owners_[i].list == kNoList) continue;
        const size_t end =
            std::min(i + 1 < owners_.size() ? owners_[i + 1].begin : text_.size(), text_.size());
        List& list = lists_[owners_[i].list];
        for (size_t position = owners_[i].begin; position < end; ++position) {
            if (!beginsParagraph(position)) continue;
            marked.append(text_, copied, position - copied);
            marked.push_back(kTab);
            marked.append(listMarker(list.style, list.number++)).push_back(kTab);
            copied = position;
        }
    }
    return marked.append(text_, copied);
}

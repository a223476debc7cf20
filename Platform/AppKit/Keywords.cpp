// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Keywords.h"

#include "Platform/AppKit/TextCharacters.h"
#include "Platform/Foundation/ASCII.h"

namespace {

bool isBlank(char32_t c) { return isXMLSpace(c) || c == kNoBreakSpace; }

} // namespace

std::vector<std::u16string> splitKeywords(std::u16string_view text, std::u16string_view separators) {
    std::vector<std::u16string> keywords;
    while (!text.empty() && keywords.size() < kKeywordLimit) {
        const size_t end = std::min(text.find_first_of(separators), text.size());
        const std::u16string_view keyword = trimmed(text.substr(0, end), isBlank);
        if (!keyword.empty()) keywords.emplace_back(keyword);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return keywords;
}

// SPDX-License-Identifier: Apache-2.0
//
// Characters, words and names as HTML and CSS see them.
#pragma once

#include "Platform/Foundation/ASCII.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

// SPACE, TAB, LF, FF and CR.
constexpr bool isHTMLSpace(char32_t c) { return isXMLSpace(c) || c == U'\f'; }

constexpr std::string_view trimmed(std::string_view text) { return trimmed(text, isHTMLSpace); }

// Takes the first word, a run of other than white space, off a text; empty when there is none left.
constexpr std::string_view takeWord(std::string_view& text) {
    while (!text.empty() && isHTMLSpace(text.front())) text.remove_prefix(1);
    size_t length = 0;
    while (length < text.size() && !isHTMLSpace(text[length])) ++length;
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

// Characters of the names that CSS gives to elements, classes and properties; escapes are not among them.
constexpr bool isStyleNameCharacter(char c) {
    return isLetter(c) || isDigit(c) || c == '-' || c == '_' || !isASCII(c);
}

// Takes such a name off the start of a text; empty when there is none.
constexpr std::string_view takeStyleName(std::string_view& text) {
    size_t length = 0;
    while (length < text.size() && isStyleNameCharacter(text[length])) ++length;
    const std::string_view name = text.substr(0, length);
    text.remove_prefix(length);
    return name;
}

// Whether `word`, which is not empty, is one of the words of a text.
constexpr bool hasWord(std::string_view text, std::string_view word) {
    for (size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const size_t end = at + word.size();
        if ((at == 0 || isHTMLSpace(text[at - 1])) && (end == text.size() || isHTMLSpace(text[end])))
            return true;
    }
    return false;
}

// The position of `needle`, which is given in lower case, at or behind `from`; npos when it is not there.
inline size_t findIgnoringCase(std::string_view text, std::string_view needle, size_t from) {
    const auto found =
        std::search(text.begin() + std::ptrdiff_t(std::min(from, text.size())), text.end(), needle.begin(),
                    needle.end(), [](char a, char b) { return lowered(a) == b; });
    return found == text.end() ? std::string_view::npos : size_t(found - text.begin());
}

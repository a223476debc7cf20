// SPDX-License-Identifier: Apache-2.0
//
// Takes texts of lines and fields apart.
#pragma once

#include <string_view>

// The part before the separator, which is taken off the text with it; all of the text when there is none.
template <class Unit>
std::basic_string_view<Unit> takePart(std::basic_string_view<Unit>& text, Unit separator) {
    const size_t end = text.find(separator);
    const std::basic_string_view<Unit> part = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    return part;
}

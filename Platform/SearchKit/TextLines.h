// SPDX-License-Identifier: Apache-2.0
//
// Takes texts of lines and fields apart.
#pragma once

#include <string_view>

// The part before the separator, which is taken off the text with it; all of the text when there is none.
inline std::string_view takePart(std::string_view& text, char separator) {
    const size_t end = text.find(separator);
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    return part;
}

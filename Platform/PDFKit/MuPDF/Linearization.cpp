// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/MuPDF/Linearization.h"

#include <charconv>

namespace {

constexpr size_t kFront = 1024; // bytes that hold the whole dictionary
constexpr std::string_view kBlanks(" \t\r\n\f\0", 6);

// The number that stands under a key in the text of a dictionary.
std::optional<size_t> numberUnder(std::string_view key, std::string_view dictionary) {
    for (size_t at = 0; (at = dictionary.find(key, at)) != std::string_view::npos;) {
        at += key.size();
        size_t start = dictionary.find_first_not_of(kBlanks, at);
        if (start == std::string_view::npos || start == at) continue; // another key that begins so
        size_t number = 0;
        const char* first = dictionary.data() + start;
        if (std::from_chars(first, dictionary.data() + dictionary.size(), number).ec == std::errc())
            return number;
    }
    return {};
}

} // namespace

std::optional<size_t> linearizedPageCount(std::string_view bytes) {
    std::string_view front = bytes.substr(0, kFront);
    size_t key = front.find("/Linearized");
    if (key == std::string_view::npos) return {};
    size_t start = front.rfind("<<", key), end = front.find(">>", key);
    if (start == std::string_view::npos || end == std::string_view::npos) return {};
    std::string_view dictionary = front.substr(start, end - start);
    if (numberUnder("/L", dictionary) != bytes.size()) return {};
    return numberUnder("/N", dictionary);
}

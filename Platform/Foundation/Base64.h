// SPDX-License-Identifier: Apache-2.0
//
// The alphabet of base64. How lenient a reader is with what stands between its characters is each format's
// own.
#pragma once

#include "Platform/Foundation/ASCII.h"

#include <string>
#include <string_view>

// The six bits of a character; -1 of one that has none.
constexpr int base64Digit(char32_t c) {
    if (c >= U'A' && c <= U'Z') return int(c - U'A');
    if (c >= U'a' && c <= U'z') return int(c - U'a') + 26;
    if (isDigit(c)) return int(c - U'0') + 52;
    return c == U'+' ? 62 : c == U'/' ? 63 : -1;
}

// Adds the bytes in groups of four characters, the last one padded.
void appendBase64(std::string& out, std::string_view bytes);

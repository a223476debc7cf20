// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/MIME/TransferEncoding.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/Base64.h"

#include <cstddef>
#include <cstdint>

namespace {

// The length of a line's end, with the blanks before it that mail on its way may have added; 0 of anything
// else.
size_t lineEndLength(std::string_view text) {
    const size_t end = text.find_first_not_of(" \t");
    if (end == text.npos) return text.size();
    if (text.substr(end, 2) == "\r\n") return end + 2;
    return text[end] == '\n' ? end + 1 : 0;
}

} // namespace

std::string decodedBase64(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 3);
    uint32_t bits = 0;
    unsigned count = 0;
    for (char c : text) {
        if (c == '=') break;
        const int digit = base64Digit(static_cast<unsigned char>(c));
        if (digit < 0) continue;
        bits = bits << 6 | uint32_t(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        bytes.push_back(char(bits >> count & 0xFF));
    }
    return bytes;
}

std::string decodedQuotedPrintable(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(1);
        if (c != '=') {
            bytes.push_back(c);
        } else if (text.size() >= 2 && hexDigit(text[0]) >= 0 && hexDigit(text[1]) >= 0) {
            bytes.push_back(char(hexDigit(text[0]) * 16 + hexDigit(text[1])));
            text.remove_prefix(2);
        } else if (const size_t length = lineEndLength(text); length > 0 || text.empty()) {
            text.remove_prefix(length);
        } else {
            bytes.push_back(c);
        }
    }
    return bytes;
}

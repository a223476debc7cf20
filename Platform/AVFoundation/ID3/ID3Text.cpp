// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/ID3/ID3Text.h"

#include "Platform/AVFoundation/LatinText.h"
#include "Platform/Foundation/NSStringEncoding.h"

namespace {

// UTF-16 that lacks its byte order mark has the order in which its first character is of a Western script.
NSStringEncoding encodingOfUTF16(std::string_view text) {
    const bool isLittleEndian = !isMarkedUTF16(text) && text.size() >= 2 && text[0] != 0 && text[1] == 0;
    return isLittleEndian ? NSUTF16LittleEndianStringEncoding : NSUnicodeStringEncoding;
}

std::vector<std::u16string> splitAtNulls(const std::u16string& text) {
    std::vector<std::u16string> strings;
    for (size_t begin = 0; begin < text.size();) {
        const size_t end = std::min(text.find(u'\0', begin), text.size());
        strings.push_back(text.substr(begin, end - begin));
        // Each string may have a byte order mark of its own.
        begin = end + 1;
    }
    return strings;
}

} // namespace

std::vector<std::u16string> stringsOfTextFrame(std::string_view body) {
    if (body.empty()) return {};
    const char encoding = body.front();
    body.remove_prefix(1);
    std::u16string text;
    switch (encoding) {
    case 0: text = latinText(body); break;
    case 1:
    case 2: appendDecoded(text, body.substr(0, body.size() & ~size_t(1)), encodingOfUTF16(body)); break;
    case 3: appendDecoded(text, body, NSUTF8StringEncoding); break;
    default: return {};
    }
    std::vector<std::u16string> strings = splitAtNulls(text);
    for (std::u16string& string : strings) {
        if (string.starts_with(u'\uFEFF')) string.erase(0, 1);
    }
    // Nulls at the end are padding, not values, the last of which would hide the text.
    while (!strings.empty() && strings.back().empty()) strings.pop_back();
    return strings;
}

std::string withoutUnsynchronisation(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (size_t i = 0; i < bytes.size(); ++i) {
        out.push_back(bytes[i]);
        if (bytes[i] == '\xFF' && i + 1 < bytes.size() && bytes[i + 1] == '\0') ++i;
    }
    return out;
}

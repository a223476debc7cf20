// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/DocumentReader.h"

#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

constexpr std::string_view kUTF8Mark = "\xEF\xBB\xBF";

bool startsWithUTF16Mark(std::string_view bytes) {
    return bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE");
}

NSStringEncoding appendText(std::u16string& text, std::string_view bytes) {
    if (startsWithUTF16Mark(bytes)) {
        appendDecoded(text, bytes.substr(0, bytes.size() & ~size_t(1)), NSUnicodeStringEncoding);
        return NSUnicodeStringEncoding;
    }
    std::string_view unmarked = bytes.starts_with(kUTF8Mark) ? bytes.substr(kUTF8Mark.size()) : bytes;
    if (appendUTF8(text, unmarked)) return NSUTF8StringEncoding;

    // Every byte is a character of this one, so that no text is ever refused.
    text.clear();
    appendDecoded(text, bytes, NSMacOSRomanStringEncoding);
    return NSMacOSRomanStringEncoding;
}

} // namespace

ReadStatus readPlainText(std::string_view bytes, Deadline&, DocumentContents& contents) {
    contents = {};
    contents.info.characterEncoding = appendText(contents.text, bytes);
    return ReadStatus::read;
}

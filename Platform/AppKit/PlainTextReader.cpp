// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/DocumentReader.h"

#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

NSStringEncoding appendText(std::u16string& text, std::string_view bytes) {
    const ByteOrderMark mark = byteOrderMark(bytes);
    if (mark.encoding != NSNoStringEncoding && mark.encoding != NSUTF8StringEncoding) {
        appendDecoded(text, bytes.substr(0, bytes.size() & ~size_t(1)), NSUnicodeStringEncoding);
        return NSUnicodeStringEncoding;
    }
    if (appendUTF8(text, bytes.substr(mark.size))) return NSUTF8StringEncoding;

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

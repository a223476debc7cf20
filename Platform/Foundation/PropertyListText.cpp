// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>

namespace {

// The value of the encoding attribute of an XML declaration at the start of the bytes, or "".
std::string_view declaredEncoding(std::string_view bytes) {
    constexpr std::string_view start = "<?xml", name = "encoding";
    if (bytes.substr(0, start.size()) != start) return {};
    std::string_view declaration = bytes.substr(0, std::min(bytes.find("?>"), bytes.size()));
    size_t at = declaration.find(name, start.size());
    if (at == std::string_view::npos) return {};
    at = declaration.find_first_not_of(" \t\r\n=", at + name.size());
    if (at == std::string_view::npos || (declaration[at] != '"' && declaration[at] != '\'')) return {};
    size_t end = declaration.find(declaration[at], at + 1);
    return end == std::string_view::npos ? std::string_view() : declaration.substr(at + 1, end - at - 1);
}

// A declaration that can be read byte by byte is not in one of these, whatever it says.
bool isWide(NSStringEncoding encoding) {
    return encoding == NSUnicodeStringEncoding || encoding == NSUTF16BigEndianStringEncoding ||
           encoding == NSUTF16LittleEndianStringEncoding || encoding == NSUTF32StringEncoding ||
           encoding == NSUTF32BigEndianStringEncoding || encoding == NSUTF32LittleEndianStringEncoding;
}

// Takes the byte order mark off the bytes.
NSStringEncoding detectedEncoding(std::string_view& bytes) {
    for (const ByteOrderMark& mark : {byteOrderMarkOfUTF32(bytes), byteOrderMark(bytes)}) {
        if (mark.encoding == NSNoStringEncoding) continue;
        bytes.remove_prefix(mark.size);
        return mark.encoding;
    }
    if (bytes.size() >= 2 && bytes[0] == '\0') return NSUTF16BigEndianStringEncoding;
    if (bytes.size() >= 2 && bytes[1] == '\0') return NSUTF16LittleEndianStringEncoding;
    std::string_view name = declaredEncoding(bytes);
    NSStringEncoding declared = name.empty() ? NSUTF8StringEncoding : encodingForIANAName(name);
    return isWide(declared) ? NSUTF8StringEncoding : declared;
}

} // namespace

bool decodePropertyListText(std::u16string& text, std::string_view bytes, NSString& problem) {
    NSStringEncoding encoding = detectedEncoding(bytes);
    if (encoding == NSNoStringEncoding) {
        problem = u"Unknown encoding (" + NSString::fromUTF8(declaredEncoding(bytes)) + u")";
        return false;
    }
    bool isText = encoding == NSUTF8StringEncoding ? appendUTF8(text, bytes, Malformed::surrogatesKept)
                                                   : appendDecoded(text, bytes, encoding);
    if (!isText) problem = u"The bytes are no text in their encoding";
    return isText;
}

size_t lineNumber(std::u16string_view text, size_t position) {
    size_t line = 1;
    for (size_t i = 0; i < position; ++i) {
        char16_t c = text[i];
        bool endsInNext = c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if (c == u'\n' || (c == u'\r' && !endsInNext) || c == u'\u2028' || c == u'\u2029') ++line;
    }
    return line;
}

NSString unexpectedCharacter(std::u16string_view text, size_t position) {
    size_t line = lineNumber(text, std::min(position, text.size()));
    if (position >= text.size()) return stringWithFormat("Unexpected end of the text at line %lu", line);
    bool isPair =
        isHighSurrogate(text[position]) && position + 1 < text.size() && isLowSurrogate(text[position + 1]);
    NSString character(text.substr(position, isPair ? 2 : 1));
    return stringWithFormat("Unexpected character %@ at line %lu", character, line);
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLEncoding.h"

#include "Platform/AppKit/HTML/HTMLCharacters.h"
#include "Platform/AppKit/HTML/HTMLTagScanner.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <optional>

namespace {

using namespace std::string_view_literals;

// How far the search takes the text of scripts and styles for markup, as the standard's does; behind it a
// declaration counts only where a parser would find it.
constexpr size_t kPrescanLength = 1024;

// Names whose encoding is on the Web the larger one of Windows.
struct Superset {
    const char* name;
    unsigned codePage;
};
constexpr Superset kSupersets[] = {{"us-ascii", 1252},   {"iso-8859-1", 1252}, {"iso-8859-9", 1254},
                                   {"iso-8859-11", 874}, {"gb2312", 936},      {"euc-kr", 949}};

bool isUTF16(NSStringEncoding encoding) {
    return encoding == NSUnicodeStringEncoding || encoding == NSUTF16BigEndianStringEncoding ||
           encoding == NSUTF16LittleEndianStringEncoding;
}

// The encoding that a declaration in ASCII bytes means.
std::optional<NSStringEncoding> declaredEncoding(std::string_view name) {
    name = trimmed(name);
    if (equalIgnoringCase(name, "x-user-defined")) return NSWindowsCP1252StringEncoding;
    const NSStringEncoding encoding = encodingForIANAName(name);
    if (encoding == NSNoStringEncoding) return std::nullopt;
    // Had the document two bytes a character, its declaration could not have been read.
    if (isUTF16(encoding)) return NSUTF8StringEncoding;
    for (const Superset& superset : kSupersets) {
        if (encoding == encodingForIANAName(superset.name)) return encodingForCodePage(superset.codePage);
    }
    return encoding;
}

// The charset in the content of a META, such as "text/html; charset=utf-8".
std::optional<std::string_view> charsetOfContent(std::string_view content) {
    constexpr std::string_view kCharset = "charset";
    size_t position = 0;
    while ((position = findIgnoringCase(content, kCharset, position)) != std::string_view::npos) {
        position += kCharset.size();
        std::string_view rest = trimmed(content.substr(position));
        if (rest.empty() || rest.front() != '=') continue;
        rest = trimmed(rest.substr(1));
        if (rest.empty()) return std::nullopt;
        if (rest.front() == '"' || rest.front() == '\'') {
            const size_t end = rest.find(rest.front(), 1);
            if (end == std::string_view::npos) return std::nullopt;
            return rest.substr(1, end - 1);
        }
        size_t end = 0;
        while (end < rest.size() && !isHTMLSpace(rest[end]) && rest[end] != ';') ++end;
        return rest.substr(0, end);
    }
    return std::nullopt;
}

// Reads the attributes of a META tag.
std::optional<NSStringEncoding> encodingOfMeta(HTMLTagScanner& scanner) {
    std::optional<std::string_view> httpEquiv, content, charset;
    HTMLTagAttribute attribute;
    while (scanner.nextAttribute(attribute)) {
        auto take = [&](std::string_view name, std::optional<std::string_view>& value) {
            if (!value && equalIgnoringCase(attribute.name, name)) value = attribute.value;
        };
        take("http-equiv", httpEquiv);
        take("content", content);
        take("charset", charset);
    }
    if (!scanner.isWhole()) return std::nullopt;
    if (charset) return declaredEncoding(*charset);
    if (!content || !httpEquiv || !equalIgnoringCase(*httpEquiv, "content-type")) return std::nullopt;
    const std::optional<std::string_view> name = charsetOfContent(*content);
    return name ? declaredEncoding(*name) : std::nullopt;
}

bool hasRawText(std::string_view name) {
    for (std::string_view raw :
         {"script"sv, "style"sv, "title"sv, "textarea"sv, "xmp"sv, "iframe"sv, "noframes"sv, "noembed"sv}) {
        if (equalIgnoringCase(name, raw)) return true;
    }
    return false;
}

std::optional<NSStringEncoding> encodingOfMetas(std::string_view bytes, bool skipRawText) {
    HTMLTagScanner scanner(bytes);
    HTMLTag tag;
    while (scanner.nextTag(tag)) {
        if (tag.isEnd) continue;
        if (equalIgnoringCase(tag.name, "meta")) {
            const auto encoding = encodingOfMeta(scanner);
            if (encoding) return encoding;
        } else if (skipRawText && hasRawText(tag.name)) {
            scanner.skipRawText(tag.name);
        }
    }
    return std::nullopt;
}

// The encoding in <?xml version="1.0" encoding="..."?>.
std::optional<NSStringEncoding> encodingOfXMLDeclaration(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return std::nullopt;
    const std::string_view declaration = bytes.substr(0, bytes.find('>'));
    const size_t found = declaration.find("encoding");
    if (found == std::string_view::npos) return std::nullopt;
    std::string_view rest = trimmed(declaration.substr(found + "encoding"sv.size()));
    if (rest.empty() || rest.front() != '=') return std::nullopt;
    rest = trimmed(rest.substr(1));
    if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) return std::nullopt;
    const size_t end = rest.find(rest.front(), 1);
    if (end == std::string_view::npos) return std::nullopt;
    return declaredEncoding(rest.substr(1, end - 1));
}

// Encodings of one byte a character go straight to UTF-8; they are most of what is not UTF-8 from the start.
std::string utf8FromSingleBytes(std::string_view bytes, const char16_t* upper) {
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 4);
    size_t run = 0;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (byte < 0x80) continue;
        out.append(bytes, run, i - run);
        run = i + 1;
        const char16_t unit = upper[byte - 0x80];
        if (unit >= 0x800) {
            out.push_back(char(0xE0 | unit >> 12));
            out.push_back(char(0x80 | (unit >> 6 & 0x3F)));
        } else {
            out.push_back(char(0xC0 | unit >> 6));
        }
        out.push_back(char(0x80 | (unit & 0x3F)));
    }
    out.append(bytes, run);
    return out;
}

} // namespace

HTMLEncoding sniffHTMLEncoding(std::string_view bytes) {
    if (const ByteOrderMark mark = byteOrderMark(bytes); mark.encoding != NSNoStringEncoding)
        return {mark.encoding, mark.size};
    if (bytes.starts_with("<\0?\0x\0"sv)) return {NSUTF16LittleEndianStringEncoding, 0};
    if (bytes.starts_with("\0<\0?\0x"sv)) return {NSUTF16BigEndianStringEncoding, 0};

    if (const auto early = encodingOfMetas(bytes.substr(0, kPrescanLength), false)) return {*early, 0};
    if (const auto declared = encodingOfXMLDeclaration(bytes)) return {*declared, 0};
    if (bytes.size() > kPrescanLength) {
        if (const auto late = encodingOfMetas(bytes, true)) return {*late, 0};
    }
    return {};
}

std::string_view htmlAsUTF8(std::string_view bytes, std::string& converted) {
    const HTMLEncoding sniffed = sniffHTMLEncoding(bytes);
    bytes.remove_prefix(sniffed.markLength);
    if (sniffed.encoding == NSUTF8StringEncoding) {
        if (isUTF8(bytes)) return bytes;
        converted = toUTF8(fromUTF8(bytes));
    } else if (const char16_t* upper = upperHalf(sniffed.encoding)) {
        if (isASCII(bytes)) return bytes;
        converted = utf8FromSingleBytes(bytes, upper);
    } else {
        std::u16string text;
        appendDecoded(text, bytes, sniffed.encoding);
        converted = toUTF8(text);
    }
    return converted;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/PDFTextString.h"

#include "Platform/Foundation/UnicodeText.h"

namespace {

constexpr size_t kLongestLanguage = 8; // units between two escapes

constexpr char16_t kAccents[] = u"\u02D8\u02C7\u02C6\u02D9\u02DD\u02DB\u02DA\u02DC"; // from 18 on
constexpr char16_t kSigns[] =                                                        // from 80 on
    u"\u2022\u2020\u2021\u2026\u2014\u2013\u0192\u2044\u2039\u203A\u2212\u2030\u201E\u201C\u201D\u2018"
    u"\u2019\u201A\u2122\uFB01\uFB02\u0141\u0152\u0160\u0178\u017D\u0131\u0142\u0153\u0161\u017E\uFFFD"
    u"\u20AC";

// Writers put Latin-1's soft hyphen where the encoding has nothing.
char16_t unitOf(unsigned char byte) {
    if (byte >= 0x18 && byte <= 0x1F) return kAccents[byte - 0x18];
    if (byte >= 0x80 && byte <= 0xA0) return kSigns[byte - 0x80];
    return byte;
}

std::u16string fromUTF16(std::string_view bytes, bool littleEndian) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        auto first = static_cast<unsigned char>(bytes[i]), second = static_cast<unsigned char>(bytes[i + 1]);
        text += char16_t(littleEndian ? second << 8 | first : first << 8 | second);
    }
    return text;
}

// Drops each language code between two escapes.
std::u16string withoutLanguages(std::u16string text) {
    constexpr char16_t escape = 0x1B;
    size_t out = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        size_t end = text[i] == escape ? text.find(escape, i + 1) : std::u16string::npos;
        if (end != std::u16string::npos && end - i - 1 <= kLongestLanguage) {
            i = end;
        } else {
            text[out++] = text[i];
        }
    }
    text.resize(out);
    return text;
}

} // namespace

std::u16string textOfPDFString(std::string_view bytes) {
    if (bytes.substr(0, 2) == "\xFE\xFF") return withoutLanguages(fromUTF16(bytes.substr(2), false));
    if (bytes.substr(0, 2) == "\xFF\xFE") return withoutLanguages(fromUTF16(bytes.substr(2), true));
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF") return withoutLanguages(fromUTF8(bytes.substr(3)));
    std::u16string text;
    text.reserve(bytes.size());
    for (char byte : bytes) text += unitOf(static_cast<unsigned char>(byte));
    return text;
}

std::u16string textOfPDFName(std::string_view bytes) {
    if (isUTF8(bytes)) return fromUTF8(bytes);
    std::u16string text;
    for (char byte : bytes) text += char16_t(static_cast<unsigned char>(byte));
    return text;
}

std::u16string textOfPDFURI(std::string_view bytes) {
    std::u16string url;
    for (char byte : toUTF8(textOfPDFName(bytes))) {
        auto c = static_cast<unsigned char>(byte);
        if (c > 0x20 && c < 0x7F) {
            url += char16_t(c);
        } else {
            constexpr char16_t digits[] = u"0123456789ABCDEF";
            url += {u'%', digits[c >> 4], digits[c & 15]};
        }
    }
    return url;
}

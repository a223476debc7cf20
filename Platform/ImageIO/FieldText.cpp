// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/FieldText.h"

#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

#include <string_view>

namespace {

bool isLower(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= 0xDF && c <= 0xFF && c != 0xF7) || c == 0x153 || c == 0x161 ||
           c == 0x17E || c == 0x131;
}

bool isUpper(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) || c == 0x152 || c == 0x160 ||
           c == 0x178 || c == 0x17D;
}

bool isWesternLetter(char16_t c) { return isLower(c) || isUpper(c); }

bool isQuotationMark(char16_t c) { return c >= 0x2018 && c <= 0x201D && c != 0x201A && c != 0x201B; }

// Other symbols that people type.
bool isUsualSymbol(char16_t c) {
    return std::u16string_view(u"\u2013\u2014\u2026\u2022\u00A9\u00AE\u2122\u00B0\u00AB\u00BB"
                               u"\u00A0\u00A1\u00BF\u00A3\u20AC\u00A7\u00B4")
               .find(c) != std::u16string_view::npos;
}

// How likely a text is one, judged by its characters beyond ASCII.
int likelihood(std::u16string_view text) {
    int score = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i], before = i > 0 ? text[i - 1] : u' ',
                       after = i + 1 < text.size() ? text[i + 1] : u' ';
        if (c < 0x80) continue;
        if (c < 0xA0) {
            score -= 3;
        } else if (isWesternLetter(c)) {
            if (isWesternLetter(before) || isWesternLetter(after)) score += 1;
            if (isUpper(c) && isLower(before)) score -= 2;
        } else if (isQuotationMark(c)) {
            if (isWesternLetter(before) || isWesternLetter(after)) score += 1;
        } else if (!isUsualSymbol(c)) {
            score -= 1;
        }
    }
    return score;
}

std::u16string decoded(std::string_view bytes, NSStringEncoding encoding) {
    std::u16string text;
    appendDecoded(text, bytes, encoding);
    return text;
}

} // namespace

std::u16string textOfField(std::string_view bytes, bool isUTF8Text) {
    while (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
    if (isUTF8Text || isUTF8(bytes)) return fromUTF8(bytes);
    std::u16string windows = decoded(bytes, NSWindowsCP1252StringEncoding),
                   mac = decoded(bytes, NSMacOSRomanStringEncoding);
    return likelihood(mac) > likelihood(windows) ? mac : windows;
}

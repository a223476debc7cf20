// SPDX-License-Identifier: Apache-2.0
#include "Platform/PDFKit/Text/CleanText.h"

#include "Platform/Foundation/UnicodeText.h"
#include "Platform/PDFKit/Text/ArabicForms.h"

#include <algorithm>

namespace {

constexpr size_t kMostUnits = 0xFFFF;
constexpr std::u16string_view kLigatures[] = {u"ff", u"fi", u"fl", u"ffi", u"ffl", u"st", u"st"};

constexpr bool isControl(char16_t c) { return c < 0x20 || c == 0x7F; }
constexpr bool isLigature(char16_t c) { return c >= 0xFB00 && c <= 0xFB06; }
constexpr bool mayBeForm(char16_t c) { return c >= 0xFB50 && c <= 0xFEFC; }
constexpr bool mayStand(char16_t c) {
    return !isControl(c) && !isLigature(c) && !isSurrogate(c) && !mayBeForm(c);
}

} // namespace

std::u16string_view cleanText(std::u16string_view text, std::u16string& scratch) {
    if (text.size() <= kMostUnits && std::all_of(text.begin(), text.end(), mayStand)) return text;
    scratch.clear();
    for (size_t i = 0; i < text.size() && scratch.size() < kMostUnits - 2; ++i) {
        char16_t c = text[i];
        if (c == 0) continue;
        if (isControl(c)) {
            scratch += u' ';
        } else if (isLigature(c)) {
            scratch += kLigatures[c - 0xFB00];
        } else if (std::u16string_view letters = lettersOfArabicForm(c); !letters.empty()) {
            scratch += letters;
        } else if (isHighSurrogate(c) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            scratch += text.substr(i++, 2);
        } else {
            scratch += isSurrogate(c) ? kReplacementCharacter : c;
        }
    }
    return scratch;
}

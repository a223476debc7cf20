// SPDX-License-Identifier: Apache-2.0
//
// What the line assembler asks of a character.
#pragma once

// Blanks of every width; U+3000 among them.
constexpr bool isBlank(char32_t c) {
    return c == 0x20 || c == 0x09 || c == 0xA0 || (c >= 0x2000 && c <= 0x200A) || c == 0x202F || c == 0x3000;
}

// Characters of scripts that are written without blanks between words and stand as wide as high.
constexpr bool isFullWidth(char32_t c) {
    return (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7AF) || (c >= 0xF900 && c <= 0xFAFF) ||
           (c >= 0xFF00 && c <= 0xFF60) || (c >= 0x20000 && c <= 0x31FFF);
}

constexpr bool isArabicIndicDigit(char32_t c) {
    return (c >= 0x0660 && c <= 0x0669) || (c >= 0x06F0 && c <= 0x06F9);
}

constexpr bool isWrittenDigit(char32_t c) { return (c >= '0' && c <= '9') || isArabicIndicDigit(c); }

// Signs that stand over or under the letter before them.
constexpr bool isMark(char32_t c) {
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x0591 && c <= 0x05BD) || c == 0x05BF || c == 0x05C1 ||
           c == 0x05C2 || c == 0x05C4 || c == 0x05C5 || c == 0x05C7 || (c >= 0x0610 && c <= 0x061A) ||
           (c >= 0x064B && c <= 0x065F) || c == 0x0670 || (c >= 0x06D6 && c <= 0x06DC) ||
           (c >= 0x06DF && c <= 0x06E4) || c == 0x06E7 || c == 0x06E8 || (c >= 0x06EA && c <= 0x06ED);
}

// Letters that are written from right to left, with their marks.
constexpr bool isRightToLeft(char32_t c) {
    if (c >= 0x0590 && c <= 0x08FF)
        return c != 0x060C && c != 0x066B && c != 0x066C && !isArabicIndicDigit(c);
    return (c >= 0xFB1D && c <= 0xFDFF) || (c >= 0xFE70 && c <= 0xFEFC) || (c >= 0x10800 && c <= 0x10FFF) ||
           (c >= 0x1E800 && c <= 0x1EFFF);
}

// The other of a pair of brackets, or the character itself.
constexpr char16_t mirrored(char16_t c) {
    switch (c) {
    case u'(': return u')';
    case u')': return u'(';
    case u'[': return u']';
    case u']': return u'[';
    case u'{': return u'}';
    case u'}': return u'{';
    case u'<': return u'>';
    case u'>': return u'<';
    case u'\u00AB': return u'\u00BB';
    case u'\u00BB': return u'\u00AB';
    case u'\u2039': return u'\u203A';
    case u'\u203A': return u'\u2039';
    default: return c;
    }
}

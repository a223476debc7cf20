// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLTextTransform.h"

#include "Platform/Foundation/ASCII.h"

namespace {

// A run of lower-case letters whose upper-case ones lie `distance` below; with a distance of 1 the letters of
// the run alternate, an upper-case one in front of each lower-case one.
struct CaseRange {
    char16_t first, last;
    char16_t distance;
};

constexpr CaseRange kRanges[] = {
    {u'a', u'z', 32},     {0x00E0, 0x00F6, 32}, {0x00F8, 0x00FE, 32}, {0x0101, 0x012F, 1},
    {0x0133, 0x0137, 1},  {0x013A, 0x0148, 1},  {0x014B, 0x0177, 1},  {0x017A, 0x017E, 1},
    {0x01CE, 0x01DC, 1},  {0x01DF, 0x01EF, 1},  {0x01F9, 0x021F, 1},  {0x0223, 0x0233, 1},
    {0x03AC, 0x03AC, 38}, {0x03AD, 0x03AF, 37}, {0x03B1, 0x03C1, 32}, {0x03C3, 0x03CB, 32},
    {0x03CC, 0x03CC, 64}, {0x03CD, 0x03CE, 63}, {0x0430, 0x044F, 32}, {0x0450, 0x045F, 80},
    {0x0461, 0x0481, 1},  {0x048B, 0x04BF, 1},  {0x04C2, 0x04CE, 1},  {0x04D1, 0x052F, 1},
    {0x0561, 0x0586, 48}, {0x1E01, 0x1E95, 1},  {0x1EA1, 0x1EFF, 1},  {0x24D0, 0x24E9, 26},
    {0xFF41, 0xFF5A, 32},
};

constexpr char16_t kSharpS = 0x00DF, kFinalSigma = 0x03C2, kLongS = 0x017F, kYWithDiaeresis = 0x00FF;

bool isInAlternation(const CaseRange& range, char16_t c) {
    return range.distance != 1 || (c - range.first) % 2 == 0;
}

char16_t upperCase(char16_t c) {
    if (c == kFinalSigma) return 0x03A3;
    if (c == kLongS) return u'S';
    if (c == kYWithDiaeresis) return 0x0178;
    for (const CaseRange& range : kRanges) {
        if (c < range.first || c > range.last) continue;
        return isInAlternation(range, c) ? char16_t(c - range.distance) : c;
    }
    return c;
}

char16_t lowerCase(char16_t c) {
    if (c == 0x0178) return kYWithDiaeresis;
    for (const CaseRange& range : kRanges) {
        const int lower = c + range.distance;
        if (lower < range.first || lower > range.last) continue;
        if (isInAlternation(range, char16_t(lower))) return char16_t(lower);
    }
    return c;
}

// Letters, digits, marks and apostrophes, roughly: what does not stand between two words.
bool isInsideWord(char16_t c) {
    if (isASCII(c)) return isLetter(c) || isDigit(c) || c == u'\'';
    if (c < 0xC0) return c == 0x00AA || c == 0x00B5 || c == 0x00BA;
    return c != 0x00D7 && c != 0x00F7 && !(c >= 0x2000 && c <= 0x206F && c != 0x2019) &&
           !(c >= 0x3000 && c <= 0x303F) && c != 0xFFFC;
}

} // namespace

void transformText(std::u16string& text, size_t begin, HTMLTextTransform transform) {
    switch (transform) {
    case HTMLTextTransform::none: return;
    case HTMLTextTransform::uppercase: {
        std::u16string upper;
        for (char16_t c : std::u16string_view(text).substr(begin)) {
            if (c == kSharpS)
                upper.append(u"SS");
            else
                upper.push_back(upperCase(c));
        }
        text.replace(begin, std::u16string::npos, upper);
        return;
    }
    case HTMLTextTransform::lowercase:
        for (size_t i = begin; i < text.size(); ++i) text[i] = lowerCase(text[i]);
        return;
    case HTMLTextTransform::capitalize:
        for (size_t i = begin; i < text.size(); ++i) {
            if (i == 0 || !isInsideWord(text[i - 1])) text[i] = upperCase(text[i]);
        }
        return;
    }
}

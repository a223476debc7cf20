// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode/Folding.h"

#include "Platform/Foundation/Unicode/UnicodeModule.h"

#include <algorithm>
#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>

namespace {

// No script needs more marks on a letter; sorting very many of them takes quadratic time.
constexpr size_t kLongestCharacter = 128;

UChar32 next(std::u16string_view text, size_t& index) {
    UChar32 c = 0;
    U16_NEXT(text.data(), index, text.size(), c);
    return c;
}

void append(std::u16string& out, UChar32 c) {
    if (c > 0xFFFF) out.push_back(U16_LEAD(c));
    out.push_back(c > 0xFFFF ? U16_TRAIL(c) : char16_t(c));
}

// What belongs to the letter before it: marks, and the later parts of a Hangul syllable.
bool isExtending(UChar32 c) {
    if (c < 0x300) return false;
    if (u_hasBinaryProperty(c, UCHAR_GRAPHEME_EXTEND) || u_charType(c) == U_COMBINING_SPACING_MARK)
        return true;
    const int32_t hangul = u_getIntPropertyValue(c, UCHAR_HANGUL_SYLLABLE_TYPE);
    return hangul == U_HST_VOWEL_JAMO || hangul == U_HST_TRAILING_JAMO;
}

// Accents and points, not the vowel signs of Indic scripts, which make other words.
bool isDiacritic(UChar32 c) {
    if (c < 0x300 || u_charType(c) != U_NON_SPACING_MARK) return false;
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(c, &status) == USCRIPT_INHERITED;
}

const UNormalizer2* normalizer(const UNormalizer2* (*instance)(UErrorCode*)) {
    UErrorCode status = U_ZERO_ERROR;
    const UNormalizer2* found = instance(&status);
    return U_SUCCESS(status) ? found : nullptr;
}

} // namespace

Folder::Folder(unsigned options)
    : options_(options), nfd_(normalizer(unorm2_getNFDInstance)), nfkc_(normalizer(unorm2_getNFKCInstance)) {}

void Folder::appendWidened(UChar32 c) {
    if ((options_ & NSWidthInsensitiveSearch) && c >= 0x2190 && nfkc_) {
        const int32_t type = u_getIntPropertyValue(c, UCHAR_DECOMPOSITION_TYPE);
        if (type == U_DT_WIDE || type == U_DT_NARROW) {
            UErrorCode status = U_ZERO_ERROR;
            char16_t ordinary[8];
            const int32_t length = unorm2_getRawDecomposition(nfkc_, c, ordinary, 8, &status);
            if (U_SUCCESS(status) && length > 0) {
                character_.append(ordinary, size_t(length));
                return;
            }
        }
    }
    append(character_, c);
}

void Folder::appendFolded(std::u16string& out, UChar32 c) const {
    if ((options_ & NSDiacriticInsensitiveSearch) && isDiacritic(c)) return;
    // Simple folding, one character to one: "ß" is not "ss".
    append(out, options_ & NSCaseInsensitiveSearch ? u_foldCase(c, U_FOLD_CASE_DEFAULT) : c);
}

size_t Folder::appendCharacter(std::u16string& out, std::u16string_view text, size_t start) {
    size_t end = start;
    character_.clear();
    appendWidened(next(text, end));
    for (size_t after = end; after < text.size() && after - start < kLongestCharacter; end = after) {
        const UChar32 c = next(text, after);
        if (!isExtending(c)) break;
        appendWidened(c);
    }

    std::u16string_view parts = character_;
    if (nfd_ && std::any_of(parts.begin(), parts.end(), [](char16_t c) { return c >= 0xC0; })) {
        UErrorCode status = U_ZERO_ERROR;
        decomposed_.resize(parts.size() * 8); // no character has more parts than four of two units
        const int32_t length = unorm2_normalize(nfd_, parts.data(), int32_t(parts.size()), decomposed_.data(),
                                                int32_t(decomposed_.size()), &status);
        if (U_SUCCESS(status)) parts = std::u16string_view(decomposed_).substr(0, size_t(length));
    }
    for (size_t i = 0; i < parts.size();) appendFolded(out, next(parts, i));
    return end;
}

std::u16string folded(std::u16string_view text, unsigned options) {
    Folder folder(options);
    std::u16string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) i = folder.appendCharacter(out, text, i);
    return out;
}

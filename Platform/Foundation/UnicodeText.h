// SPDX-License-Identifier: Apache-2.0
//
// The Unicode encoding forms. Text inside the system is UTF-16 in which U+0000 and lone surrogates are
// ordinary units; these functions say what becomes of them at each border.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

constexpr char16_t kReplacementCharacter = u'\uFFFD';

constexpr bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }
constexpr bool isSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

constexpr char32_t joinSurrogates(char16_t high, char16_t low) {
    return 0x10000 + ((char32_t(high) - 0xD800) << 10) + (char32_t(low) - 0xDC00);
}

// Appends one code point; surrogates are appended as they are, values above U+10FFFF as U+FFFD.
void appendCodePoint(std::u16string& out, char32_t codePoint);

// What malformed UTF-8 becomes.
enum class Malformed {
    replaced,      // each maximal ill-formed part becomes one U+FFFD
    byteEscaped,   // each offending byte becomes U+DC80 to U+DCFF, so that the bytes can be had back
    surrogatesKept // as `replaced`, but the three-byte forms of surrogates are taken back as surrogates
};

// Appends the text of UTF-8 bytes. Returns true when all of it was well-formed under `malformed`'s rule
// (the three-byte forms of surrogates count as well-formed with `surrogatesKept` only).
bool appendUTF8(std::u16string& out, std::string_view bytes, Malformed malformed = Malformed::replaced);

std::u16string fromUTF8(std::string_view bytes, Malformed malformed = Malformed::replaced);

// What lone surrogates become in UTF-8.
enum class LoneSurrogates {
    replaced,     // U+FFFD, for people and for strict readers
    threeBytes,   // their three-byte form, which only a tolerant reader takes back
    byteUnescaped // U+DC80 to U+DCFF become the bytes 80 to FF, all others their three-byte form
};

std::string toUTF8(std::u16string_view text, LoneSurrogates lone = LoneSurrogates::replaced);

bool hasLoneSurrogate(std::u16string_view text);

// True when the bytes are strict UTF-8.
bool isUTF8(std::string_view bytes);

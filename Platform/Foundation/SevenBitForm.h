// SPDX-License-Identifier: Apache-2.0
//
// The encodings that pack two-byte characters into seven bits between escape sequences: ISO-2022-JP (RFC 1468
// and the katakana and supplementary sets that mail has besides), ISO-2022-KR (RFC 1557) and HZ (RFC 1843).
#pragma once

#include "Platform/Foundation/EncodingNumbers.h"

#include <string>
#include <string_view>

// The multi-byte encoding that holds the same characters in eight bits, or NSNoStringEncoding when `encoding`
// is none of the three.
constexpr NSStringEncoding eightBitEncoding(NSStringEncoding encoding) {
    switch (encoding) {
    case NSISO2022JPStringEncoding: return NSJapaneseEUCStringEncoding;
    case kEncodingISO2022KR: return kEncodingEUCKR;
    case kEncodingHZ: return kEncodingEUCCN;
    default: return NSNoStringEncoding;
    }
}

// The text of one of the three in its eight-bit encoding. What is malformed becomes the byte FF, which none
// of those define either.
std::string eightBitForm(std::string_view bytes, NSStringEncoding encoding);

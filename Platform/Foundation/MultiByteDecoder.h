// SPDX-License-Identifier: Apache-2.0
//
// The East Asian encodings, in which a character has one byte or more. The tables are those of the C
// library's iconv, opened when the first such text is met and kept for the thread. Text in ASCII alone opens
// nothing.
#pragma once

#include "Platform/Foundation/NSStringEncoding.h"

#include <string>
#include <string_view>

bool isMultiByteEncoding(NSStringEncoding encoding);

// Appends the text of `bytes` in a multi-byte encoding. A malformed or unassigned character becomes one
// U+FFFD, as does an incomplete one at the end. Where iconv lacks the encoding, ASCII is kept and every other
// byte becomes U+FFFD. Returns true when every byte was part of a character.
//
// With `loneBytes`, the units of bytes 0x80 to 0xFF, a single byte that is no character becomes its unit
// there instead.
bool appendMultiByte(std::u16string& out, std::string_view bytes, NSStringEncoding encoding,
                     const char16_t* loneBytes = nullptr);

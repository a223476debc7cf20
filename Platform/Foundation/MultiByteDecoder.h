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
// byte becomes U+FFFD. Returns true when nothing became U+FFFD.
bool appendMultiByte(std::u16string& out, std::string_view bytes, NSStringEncoding encoding);

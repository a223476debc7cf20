// SPDX-License-Identifier: Apache-2.0
//
// Text in the East Asian encodings, as the C library's iconv writes them.
#pragma once

#include "Platform/Foundation/NSStringEncoding.h"

#include <string>
#include <string_view>

// Appends the bytes of `text`. False when a character is not in the encoding, or iconv has no such encoding.
bool appendMultiByteEncoded(std::string& out, std::u16string_view text, NSStringEncoding encoding);

// SPDX-License-Identifier: Apache-2.0
//
// The encoding of text that does not say its encoding.
#pragma once

#include <string>
#include <string_view>

// UTF-8 when the bytes are valid UTF-8 or `isUTF8Text` says so, else Windows code page 1252 or Mac OS Roman,
// whichever makes more likely words of them. Trailing U+0000 are no part of the text.
std::u16string textOfField(std::string_view bytes, bool isUTF8Text = false);

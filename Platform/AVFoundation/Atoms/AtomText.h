// SPDX-License-Identifier: Apache-2.0
//
// The encodings of text in atoms. Trailing U+0000 are never part of a text.
#pragma once

#include <string>
#include <string_view>

// UTF-8, as it should be; else UTF-16 with a byte order mark, else Mac OS Roman, which old writers left.
std::u16string textOfUTF8(std::string_view bytes);

// UTF-16 with its most significant byte first, unless a byte order mark says otherwise.
std::u16string textOfUTF16(std::string_view bytes);

// The text of a user data string. `language` is a Macintosh language code, which stands for an encoding, or
// three packed letters, which stand for Unicode.
std::u16string textInLanguage(std::string_view bytes, unsigned language);

// SPDX-License-Identifier: Apache-2.0
//
// Numbers of list items as digits, letters or Roman numerals.
#pragma once

#include <string>

namespace OpenDocument {

// The format is '1', 'a', 'A', 'i' or 'I'. Past z come aa, ab, or with `lettersRepeat` aa, bb. Numbers that
// have no letters or Roman numerals, or overlong ones, come in digits.
void appendNumber(std::u16string& out, int number, char16_t format, bool lettersRepeat);

} // namespace OpenDocument

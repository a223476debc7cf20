// SPDX-License-Identifier: Apache-2.0
//
// The one-byte modifier codes of Word 6 and 95: how long each one's operand is, and which code of Word 97
// says the same. Piece descriptors of later versions use these codes too.
#pragma once

#include <cstdint>

namespace Word {

struct OldModifier {
    // Lengths of operands that say their length themselves.
    static constexpr uint8_t kLengthByte = 0xFF, kLengthWord = 0xFE, kTabs = 0xFD, kUnknown = 0xFC;

    uint16_t code = 0; // of Word 97; 0 when it does not matter for the text
    uint8_t length = kUnknown;
};

// Word 97 has other numberings for these two; the codes are of this system.
constexpr uint16_t kOldNumbering = 0xC600, kOldNumberingLevel = 0x2600;

OldModifier oldModifier(uint8_t code);

} // namespace Word

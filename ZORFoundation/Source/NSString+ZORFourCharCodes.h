// SPDX-License-Identifier: Apache-2.0
//
// Four-character codes: numbers of 32 bits whose bytes, the highest first, are Mac OS Roman characters.
#pragma once

#include "Platform/Foundation/NSString.h"

// 0 when the text is not Mac OS Roman. A text that has not four units is reported and stops the process.
uint32_t zorFourCharCodeValue(const NSString& text);

// The unknown code's text for 0.
NSString zorStringWithFourCharCode(uint32_t code);

// Four times U+0000.
NSString zorUnknownCode();
bool zorIsUnknownCode(const NSString& text);

// SPDX-License-Identifier: Apache-2.0
//
// Comparison of text by Unicode's rules. Plain ASCII is compared here; other text goes through the "Unicode"
// module, which alone links the Unicode library.
#pragma once

#include "Platform/Foundation/NSString.h"

// True when the texts are the same but for case (simple case folding, no locale) and for the composition of
// their characters; diacritics count. Raises a generic exception when the module is needed and missing.
bool isCaseInsensitiveEqual(const NSString& a, const NSString& b);

// The module's entry.
using CaseInsensitiveEqual = bool (*)(std::u16string_view a, std::u16string_view b);

// SPDX-License-Identifier: Apache-2.0
//
// Tests on strings.
#pragma once

#include "Platform/Foundation/NSString.h"

// True when the other object is a string that differs in nothing but case. No locale; diacritics count. Two
// nils are not equal.
bool zorCaseInsensitiveIsEqual(const NSString& text, const NSObject& other);

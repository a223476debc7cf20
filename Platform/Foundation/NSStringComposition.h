// SPDX-License-Identifier: Apache-2.0
//
// Composed character sequences: what a reader takes for one character, such as a letter with its accents, a
// surrogate pair or an emoji of several parts. CR and LF are two even when they stand together.
#pragma once

#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSString.h"

// The sequence that the unit at `index` belongs to. Raises a range exception when the index is not inside.
NSRange rangeOfComposedCharacterSequenceAtIndex(const NSString& text, size_t index);

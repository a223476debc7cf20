// SPDX-License-Identifier: Apache-2.0
//
// Changes to text.
#pragma once

#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSString.h"

// The text without any U+0000, wherever in it they stand. Surrogates stay as they are.
NSString zorStringByTrimmingNulls(const NSString& text);

// The range widened to whole composed characters. Raises a range exception when it does not lie inside the
// text or begins at its end.
NSRange zorRangeOfComposedCharacterSequencesInRange(const NSString& text, NSRange range);

// The text up to the composed character that the unit at `index` belongs to; the whole when it is not inside.
NSString zorSubstringToComposedIndex(const NSString& text, size_t index);

// Text and suffix in at most `total` units: composed characters at the end of the text give way. A suffix
// that is longer than that is reported and stops the process.
NSString zorStringByAddingSuffix(const NSString& text, const NSString& suffix, uint64_t total);

// SPDX-License-Identifier: Apache-2.0
//
// Changes to text, and parts of it. All answer new strings, or the same one when there is nothing to change.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSCharacterSet.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSString.h"

// The text without any U+0000, wherever in it they stand. Surrogates stay as they are.
NSString zorStringByTrimmingNulls(const NSString& text);
// Without white space and line ends at both ends.
NSString zorStringByStripping(const NSString& text);
// Only the units that are in the set.
NSString zorStringByKeepingCharactersInSet(const NSString& text, const NSCharacterSet& set);

// Composed characters. -------------------------------------------------------------------------------------

// The range widened to whole composed characters. Raises a range exception when it does not lie inside the
// text or begins at its end.
NSRange zorRangeOfComposedCharacterSequencesInRange(const NSString& text, NSRange range);

// The text up to the composed character that the unit at `index` belongs to; the whole when it is not inside.
NSString zorSubstringToComposedIndex(const NSString& text, size_t index);

// Text and suffix in at most `total` units: composed characters at the end of the text give way. A suffix
// that is longer than that is reported and stops the process.
NSString zorStringByAddingSuffix(const NSString& text, const NSString& suffix, uint64_t total);

// About `length` units of each end with an ellipsis between, or the text when it is not longer than both.
NSString zorStringByTruncatingMiddleAfterComposedLength(const NSString& text, size_t length);

// Without the composed character that the last unit but one belongs to, and what follows it: a surrogate pair
// at the end, or two plain characters. "" for fewer than two units.
NSString zorStringByChoppingComposedCharacter(const NSString& text);

// Lines. ---------------------------------------------------------------------------------------------------

// The lines, which LF, CR, CR LF, U+0085, U+2028 or U+2029 end, without these. No empty line comes after the
// last one's end.
NSArray zorComponentsSeparatedByLineSeparators(const NSString& text);
// CR LF and CR become LF.
NSString zorStringByNormalizingLineBreaks(const NSString& text);

// Replacing, unit by unit. The empty string occurs nowhere. ------------------------------------------------

NSString zorStringByReplacingString(const NSString& text, const NSString& wanted,
                                    const NSString& replacement);
NSString zorStringByReplacingFirstOccurrenceOfString(const NSString& text, const NSString& wanted,
                                                     const NSString& replacement);
// Every key replaced by its value, in the dictionary's order, also in what earlier ones brought in.
NSString zorStringByExpandingKeysInDictionary(const NSString& text, const NSDictionary& values);

// Joining and adding. --------------------------------------------------------------------------------------

// The descriptions of the elements, parted by the separator.
NSString zorJoin(const NSString& separator, const NSArray& elements);
// The suffix is added unless it is there.
NSString zorStringByEnsuringSuffix(const NSString& text, const NSString& suffix);
// The separator between every `length` units. A length of 0 is a programming error when there are two units
// or more, and fails a precondition.
NSString zorStringByChunking(const NSString& text, unsigned length, const NSString& separator);

// Parts. An index at or past the end is the end. -----------------------------------------------------------

NSString zorSubstringToIndex(const NSString& text, size_t index);
NSString zorSubstringFromIndex(const NSString& text, size_t index);
// Before and after the first occurrence, in which letters may be composed differently. "" without one.
NSString zorSubstringToString(const NSString& text, const NSString& wanted);
NSString zorSubstringFromString(const NSString& text, const NSString& wanted);
// Before the first and after the last U+0020; the whole text without one.
NSString zorFirstSpaceComponent(const NSString& text);
NSString zorLastSpaceComponent(const NSString& text);
// Without the last unit.
NSString zorStringByChopping(const NSString& text);

// SPDX-License-Identifier: Apache-2.0
//
// Tests on strings, and their order. An empty string is found nowhere and is nobody's prefix.
#pragma once

#include "Platform/Foundation/NSCharacterSet.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSStringCompare.h"

// True when the other object is a string that differs in nothing but case. No locale; diacritics count. Two
// nils are not equal.
bool zorCaseInsensitiveIsEqual(const NSString& text, const NSObject& other);

// Unit by unit.
bool zorContainsString(const NSString& text, const NSString& wanted);
bool zorCaseInsensitiveContainsString(const NSString& text, const NSString& wanted);

bool zorHasCaseInsensitivePrefix(const NSString& text, const NSString& prefix);
// Diacritics and the width of characters do not count, but case does.
bool zorHasDiacriticPrefix(const NSString& text, const NSString& prefix);
// None of the three counts.
bool zorHasDiacriticInsensitivePrefix(const NSString& text, const NSString& prefix);

// False when the index is not inside the text.
bool zorHasCharacter(const NSString& text, char16_t unit, size_t index);
bool zorContainsCharacter(const NSString& text, char16_t unit);
size_t zorCountOccurrencesOfCharacter(const NSString& text, char16_t unit);
// Whether every unit is in the set.
bool zorMatchesCharacterSet(const NSString& text, const NSCharacterSet& set);

// As a reader expects names in a list.
NSComparisonResult zorCompareForDisplay(const NSString& text, const NSString& other);
// The shorter before the longer.
NSComparisonResult zorCompareLength(const NSString& text, const NSString& other);

// SPDX-License-Identifier: Apache-2.0
//
// Searching and ordering text. Texts that differ only in how their accented letters are composed are the same
// here, and a match never ends between a letter and its accents; that is not so with the literal search,
// which compares units. ASCII is compared at once; for other text the Unicode modules are loaded, and a
// generic exception is raised when they are missing. nil is taken as "".
#pragma once

#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSObjCRuntime.h"
#include "Platform/Foundation/NSString.h"

// The platform's option bits.
enum NSStringCompareOptions : unsigned {
    NSCaseInsensitiveSearch = 1, // simple case folding, no locale
    NSLiteralSearch = 2,         // alone, not with the insensitive ones
    NSAnchoredSearch = 8,        // at the start only
    NSDiacriticInsensitiveSearch = 128,
    NSWidthInsensitiveSearch = 256, // full-width and half-width forms of East Asia are their ordinary ones
};

inline constexpr uint64_t NSNotFound = INT64_MAX;

// The first occurrence, or {NSNotFound, 0}. The empty string occurs nowhere.
NSRange rangeOfString(const NSString& text, const NSString& wanted, unsigned options = 0);

// By units after simple case folding; diacritics count.
NSComparisonResult caseInsensitiveCompare(const NSString& a, const NSString& b);

// As a reader expects names in a list: by the rules of the user's language (LC_ALL, LC_COLLATE, LANG), case
// does not count, and digits count by the number that they make.
NSComparisonResult localizedNumericCaseInsensitiveCompare(const NSString& a, const NSString& b);

// SPDX-License-Identifier: Apache-2.0
//
// Everything that the library adds to strings, but for paths. Strings are UTF-16 units, U+0000 and lone
// surrogates among them, and every length and index counts units; "composed" operations never part what a
// reader takes for one character. nil counts as "" where nothing else is said.
#pragma once

#include "ZORFoundation/Source/NSString+ZORComparisons.h"
#include "ZORFoundation/Source/NSString+ZORConversionsBasics.h"
#include "ZORFoundation/Source/NSString+ZORCreation.h"
#include "ZORFoundation/Source/NSString+ZORFourCharCodes.h"
#include "ZORFoundation/Source/NSString+ZORPunctuation.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

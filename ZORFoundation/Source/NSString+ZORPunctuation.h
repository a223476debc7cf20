// SPDX-License-Identifier: Apache-2.0
//
// Typographic punctuation, a string of one character each.
#pragma once

#include "Platform/Foundation/NSString.h"

NSString zorEllipsis();
NSString zorEnDash();
NSString zorEmDash();
NSString zorLeftDoubleQuote();
NSString zorRightDoubleQuote();
NSString zorLeftSingleQuote();
NSString zorRightSingleQuote();
NSString zorLeftDoubleGuillemet();
NSString zorRightDoubleGuillemet();
NSString zorLeftSingleGuillemet();
NSString zorRightSingleGuillemet();

// The text between typographic double quotes.
NSString zorDoubleQuotedString(const NSString& text);

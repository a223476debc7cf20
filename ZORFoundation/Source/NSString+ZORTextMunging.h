// SPDX-License-Identifier: Apache-2.0
//
// Changes to text.
#pragma once

#include "Platform/Foundation/NSString.h"

// The text without any U+0000, wherever in it they stand. Surrogates stay as they are.
NSString zorStringByTrimmingNulls(const NSString& text);

// SPDX-License-Identifier: Apache-2.0
//
// Settings with a default of the caller's. The forms with a domain read that domain's stored preferences and
// nothing else: neither the command line nor registered defaults are seen. The forms without one search as
// the receiver does. A value that is absent or cannot be what is asked for gives the default. A nil key is a
// programming error: it is reported, and the process stops.
#pragma once

#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSUserDefaults.h"

bool zorBoolForKey(const NSUserDefaults& defaults, const NSString& key, const NSString& domain,
                   bool defaultValue);
int64_t zorIntegerForKey(const NSUserDefaults& defaults, const NSString& key, const NSString& domain,
                         int64_t defaultValue);
// Whatever is stored, unchanged.
NSObject zorObjectForKey(const NSUserDefaults& defaults, const NSString& key, const NSString& domain,
                         const NSObject& defaultValue);

NSObject zorObjectForKey(const NSUserDefaults& defaults, const NSString& key, const NSObject& defaultValue);
// Only a string will do: a number gives the default.
NSString zorStringForKey(const NSUserDefaults& defaults, const NSString& key, const NSString& defaultValue);
// These take numbers and strings.
bool zorBoolForKey(const NSUserDefaults& defaults, const NSString& key, bool defaultValue);
int64_t zorIntegerForKey(const NSUserDefaults& defaults, const NSString& key, int64_t defaultValue);
double zorDoubleForKey(const NSUserDefaults& defaults, const NSString& key, double defaultValue);
// From the text of a size.
NSSize zorSizeForKey(const NSUserDefaults& defaults, const NSString& key, NSSize defaultValue);

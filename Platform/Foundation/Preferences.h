// SPDX-License-Identifier: Apache-2.0
//
// Stored preferences: a property list a domain, named after it, in the user's configuration folder and then
// in the system's. A list that is damaged or cannot be read is as if it were absent, with one log line.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSString.h"

// The domain that every program's settings fall back on.
inline constexpr const char16_t* NSGlobalDomain = u"NSGlobalDomain";

// The value of a key in the domain's stored lists, the user's first; nil when none has it. Each domain's
// lists are read once in a process.
NSObject storedPreference(const NSString& key, const NSString& domain);

// The value in the application's stored preferences or else the global ones. What the command line of this
// process says takes no part. nil when absent.
NSObject CFPreferencesCopyAppValue(const NSString& key, const NSString& applicationID);

// "true", "yes", "false" and "no" in any case, booleans and integers are valid; anything else sets `valid` to
// false.
bool CFPreferencesGetAppBooleanValue(const NSString& key, const NSString& applicationID, bool* valid);

// Integers, and strings that are a decimal integer (held to 32 bits), are valid.
int64_t CFPreferencesGetAppIntegerValue(const NSString& key, const NSString& applicationID, bool* valid);

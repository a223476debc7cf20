// SPDX-License-Identifier: Apache-2.0
//
// Tests and texts of errors, and the library's own error domain.
#pragma once

#include "Platform/Foundation/NSError.h"

inline constexpr const char16_t* ZORErrorDomain = u"ZORErrorDomain";

// An error of the library's domain.
NSError ZORError1(int64_t code, const NSDictionary& userInfo);

bool zorHasDomain(const NSError& error, const NSString& domain, int64_t code);

// The whole error for logs, underlying errors included: "<NSError Domain=... Code=... UserInfo={...}>".
// Asking for it logs the short form first when the setting "ErrorShortLogging" is on. nil for nil.
NSString zorFullDescription(const NSError& error);

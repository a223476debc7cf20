// SPDX-License-Identifier: Apache-2.0
//
// Who the host is, and its settings.
#pragma once

#include "Platform/Foundation/NSObject.h"

#include <cstdint>

// The host application's identifier: the preferences domain of its settings.
inline constexpr const char16_t* kHostDomain = u"" TEXTTOOL_HOST_DOMAIN;

// This tool's own identifier.
inline constexpr const char16_t* kToolDomain = u"" TEXTTOOL_HOST_DOMAIN ".texttool";

// What the host's stored preferences say, and the default where they say nothing of that kind.
bool hostBool(const char16_t* key, bool defaultValue);
int64_t hostInteger(const char16_t* key, int64_t defaultValue);
NSObject hostObject(const char16_t* key, const NSObject& defaultValue);

// Whether the host wants nothing to be fetched for web archives.
bool isForcedOffline();

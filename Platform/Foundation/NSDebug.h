// SPDX-License-Identifier: Apache-2.0
//
// The switch for diagnostic log lines.
#pragma once

#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/StringFormat.h"

// Whether the environment sets NSDebugEnabled to YES.
bool NSDebugEnabled();

// A log line that is formatted and written only then.
template <class... Arguments>
void debugLog(std::string_view format, const Arguments&... arguments) {
    if (NSDebugEnabled()) NSLog(stringWithFormat(format, arguments...));
}

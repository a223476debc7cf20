// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSDebug.h"

#include "Platform/Foundation/NSProcessInfo.h"

bool NSDebugEnabled() {
    return NSProcessInfo::processInfo().environmentValue("NSDebugEnabled").isEqualToString(u"YES");
}

// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORException.h"

#include "Platform/Foundation/StringFormat.h"

NSString ZORException::reason() const {
    return stringWithFormat("%@ at %@", zorReason(), userInfo().objectForKey(NSString(ZORExceptionLocation)));
}

void ZORException::raise() const { throw *this; }

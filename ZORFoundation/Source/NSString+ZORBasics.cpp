// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORBasics.h"

#include "Platform/Foundation/Unicode.h"

bool zorCaseInsensitiveIsEqual(const NSString& text, const NSObject& other) {
    return text && is<NSString>(other) && isCaseInsensitiveEqual(text, as<NSString>(other));
}

// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORComparisons.h"

#include "Platform/Foundation/NSStringCompare.h"

bool zorCaseInsensitiveIsEqual(const NSString& text, const NSObject& other) {
    return text && is<NSString>(other) && caseInsensitiveCompare(text, as<NSString>(other)) == NSOrderedSame;
}

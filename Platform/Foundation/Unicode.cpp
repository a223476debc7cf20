// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode.h"

#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSException.h"

const UnicodeFunctions& unicodeFunctions() {
    NSString why;
    static const auto entry = reinterpret_cast<UnicodeModuleEntry>(moduleEntry("Unicode", &why));
    if (!entry) NSException(NSGenericException, why).raise();
    return *entry();
}

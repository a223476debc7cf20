// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode.h"

#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSException.h"

const UnicodeFunctions& unicodeFunctions() {
    static const ModuleEntry<UnicodeModuleEntry> module("Unicode");
    if (!module.get()) NSException(NSGenericException, module.why()).raise();
    return *module.get()();
}

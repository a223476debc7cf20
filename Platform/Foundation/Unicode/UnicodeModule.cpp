// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode/UnicodeModule.h"

#include "Platform/Foundation/Module.h"

extern "C" __attribute__((visibility("default"))) const UnicodeFunctions* MODULE_ENTRY() {
    static constexpr UnicodeFunctions functions{clusterAround, folded, findFolded};
    return &functions;
}

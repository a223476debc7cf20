// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORPrecondition.h"

#include "ZORFoundation/Source/ZORException.h"

#include <cstdio>
#include <cstdlib>

void zorStopAfterReport(const ZORFunctions::Location& location, const char* method, const char* condition) {
    try {
        ZORFunctions::assertionFailed(location, stringWithFormat("Precondition Failed: %s", condition));
    } catch (const ZORException&) {
        fprintf(stderr, "Assertion failed: ((%s)), function %s, file %s, line %lu.\n", condition, method,
                location.file, location.line);
        abort();
    }
}

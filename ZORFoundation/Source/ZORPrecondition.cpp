// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORPrecondition.h"

#include "ZORFoundation/Source/ZORException.h"

#include <cstdio>
#include <cstdlib>
#include <string>

void zorStopAfterReport(const ZORFunctions::Location& location, const char* method, const char* condition) {
    const std::string expression = std::string("((") + condition + "))";
    zorStopAfterReport(location, method, stringWithFormat("Precondition Failed: %s", condition),
                       expression.c_str());
}

void zorStopAfterReport(const ZORFunctions::Location& location, const char* method, const NSString& report,
                        const char* expression) {
    try {
        ZORFunctions::assertionFailed(location, report);
    } catch (const ZORException&) {
        fprintf(stderr, "Assertion failed: (%s), function %s, file %s, line %lu.\n", expression, method,
                location.file, location.line);
        abort();
    }
}

// SPDX-License-Identifier: Apache-2.0
//
// Preconditions of library methods.
#pragma once

#include "ZORFoundation/Source/ZORFunctions.h"

// A violated precondition is logged and raises "ZORAssertionFailedException".
#define ZORPrecondition(condition, file, object, selector)                                                   \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            ZORFunctions::assertionFailedForFile(file, __LINE__, object, selector,                           \
                                                 "Precondition Failed: %s", #condition);                     \
        }                                                                                                    \
    } while (false)

// For methods that cannot go on: the violated precondition is reported as above, the report's exception is
// held back, "Assertion failed: (EXPRESSION), function METHOD, file FILE, line N." goes to standard error and
// the process aborts. The expression is "((CONDITION))".
[[noreturn]] void zorStopAfterReport(const ZORFunctions::Location& location, const char* method,
                                     const char* condition);

// The same with a report and an expression of one's own.
[[noreturn]] void zorStopAfterReport(const ZORFunctions::Location& location, const char* method,
                                     const NSString& report, const char* expression);

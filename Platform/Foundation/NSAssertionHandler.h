// SPDX-License-Identifier: Apache-2.0
//
// What the platform does with a failed assertion: one log line, then an internal-inconsistency exception
// whose reason is the description.
#pragma once

#include "Platform/Foundation/NSString.h"

class NSAssertionHandler {
public:
    static NSAssertionHandler& currentHandler();

    [[noreturn]] void handleFailureInFunction(const NSString& function, const NSString& file, long line,
                                              const NSString& description);
    // `method` is the method's full name, for example "-[Loader load]".
    [[noreturn]] void handleFailureInMethod(const NSString& method, const NSString& file, long line,
                                            const NSString& description);
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSAssertionHandler.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/StringFormat.h"

NSAssertionHandler& NSAssertionHandler::currentHandler() {
    static NSAssertionHandler handler;
    return handler;
}

void NSAssertionHandler::handleFailureInFunction(const NSString& function, const NSString& file, long line,
                                                 const NSString& description) {
    NSLog(stringWithFormat("*** Assertion failure in %@, %@:%ld", function, file, line));
    NSException(NSInternalInconsistencyException, description).raise();
}

void NSAssertionHandler::handleFailureInMethod(const NSString& method, const NSString& file, long line,
                                               const NSString& description) {
    handleFailureInFunction(method, file, line, description);
}

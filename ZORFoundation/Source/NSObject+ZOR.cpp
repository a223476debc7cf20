// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSObject+ZOR.h"

#include "ZORFoundation/Source/NSError+ZOR.h"

bool zorEnsureClass(const NSObject& object, const NSClass& expectedClass, NSError* error) {
    if (!object) return false;
    if (expectedClass.name() == "NSObject" || object.className() == expectedClass.name()) return true;
    return fail(error, zorErrorBySettingFailingObject(NSError(NSCocoaErrorDomain, NSFileReadCorruptFileError),
                                                      object, expectedClass));
}

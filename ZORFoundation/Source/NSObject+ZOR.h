// SPDX-License-Identifier: Apache-2.0
//
// Tests on objects.
#pragma once

#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSError.h"

// Whether the object is of the class; all are of NSObject. If not, the error is Cocoa 259 with the object,
// the expected class and its own. nil is of no class, and leaves the error of whatever did not find an
// object.
bool zorEnsureClass(const NSObject& object, const NSClass& expectedClass, NSError* error);

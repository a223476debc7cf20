// SPDX-License-Identifier: Apache-2.0
//
// Cocoa's errors for what the system says of a file: one rule for every call that reads or writes.
#pragma once

#include "Platform/Foundation/NSError.h"

// Cocoa's code for a read that failed with the system's error.
int64_t fileReadErrorCode(int systemErrno);

// Both with the path and, beneath, the system's error. What is missing when a file cannot be made is its
// folder, and so says the error.
NSError fileReadError(const NSString& path, int systemErrno);
NSError fileWriteError(const NSString& path, int systemErrno);

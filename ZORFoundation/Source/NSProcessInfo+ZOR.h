// SPDX-License-Identifier: Apache-2.0
//
// The running system and process.
#pragma once

#include "Platform/Foundation/NSProcessInfo.h"

namespace NSProcessInfoZOR {

// Whether a Foundation version number belongs to the release or a later one; the number of this process when
// it is left out.
bool zorIsLionOrBetter(double foundationVersion = NSFoundationVersionNumber);
bool zorIsMountainLionOrBetter(double foundationVersion = NSFoundationVersionNumber);
bool zorIsMavericksOrBetter(double foundationVersion = NSFoundationVersionNumber);
bool zorIsYosemiteOrBetter(double foundationVersion = NSFoundationVersionNumber);

// "10.10.5".
NSString zorOSVersionString();

// Processors online; asked of the system once. 1 when the system does not tell.
unsigned zorNumberOfProcessors();

// The soft limit on open files; 0 when the system does not tell.
uint64_t zorMaximumOpenFilesCount();
// Sets the soft and the hard limit. Fails silently without the privilege.
void zorSetMaximumOpenFilesCount(uint64_t count);

// What the setting "ZORAppSandbox" says; the process does not look at itself.
bool zorIsInAppSandbox();

// Whether the processor is a 64-bit one of the x86 family.
bool zorSupportsModernRuntime();

// Whether a process of the current real user has the command name, compared byte by byte over at most 16
// bytes: a longer name never matches. Raises through the assertion handler when the process table cannot be
// read.
bool zorIsBSDProcessRunning(const NSString& name);

} // namespace NSProcessInfoZOR

// SPDX-License-Identifier: Apache-2.0
//
// Modules: parts of the system with libraries of their own, loaded when they are first needed so that nobody
// else pays for them. A module resolves the values and the library from the program and exports one entry.
#pragma once

#include "Platform/Foundation/NSString.h"

// The name of the entry that every module exports.
#define MODULE_ENTRY texttoolModuleEntry

// The address of a module's entry, or null and in `why` a sentence that names the module. Modules lie in
// ../lib/texttool beside the program's folder, else where the system was installed.
void* moduleEntry(const char* module, NSString* why);

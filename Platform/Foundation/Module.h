// SPDX-License-Identifier: Apache-2.0
//
// Modules: parts of the system with libraries of their own, loaded when they are first needed so that nobody
// else pays for them. A module resolves the values and the library from the program and exports one entry.
#pragma once

#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSString.h"

#include <string>
#include <vector>

// The name of the entry that every module exports.
#define MODULE_ENTRY texttoolModuleEntry

// Where to look for modules first. For programs that were installed apart from the modules; to be called
// before anything that needs one.
void setModuleFolder(const NSString& folder);

// The folders in which modules are looked for, in this order.
std::vector<std::string> moduleFolders();

// The address of a module's entry, or null and in `why` a sentence that names the module. Modules lie in
// the folder that was set, in ../lib/texttool beside the program's folder, or where the system was installed.
void* moduleEntry(const char* module, NSString* why);

// The error of what a module that cannot be loaded was to do. It has no path yet.
NSError moduleError(const NSString& why);

// An entry, looked up once in the process however often it is asked for.
template <class Entry>
class ModuleEntry {
public:
    explicit ModuleEntry(const char* module) : entry_(reinterpret_cast<Entry>(moduleEntry(module, &why_))) {}
    // Null when the module could not be loaded: why not is told every time.
    Entry get() const { return entry_; }
    const NSString& why() const { return why_; }

private:
    NSString why_;
    Entry entry_;
};

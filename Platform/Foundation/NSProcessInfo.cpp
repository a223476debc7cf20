// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSProcessInfo.h"

#include "Platform/Foundation/NSPathUtilities.h"

#include <cstdlib>

namespace {

char** commandLine = nullptr; // ends with a null pointer

// The C library hands the command line to every initializer, so that the library needs nothing of its
// program's main.
[[gnu::constructor]] void keepCommandLine(int, char** words) { commandLine = words; }

} // namespace

NSProcessInfo& NSProcessInfo::processInfo() {
    static NSProcessInfo info;
    return info;
}

const std::vector<NSString>& NSProcessInfo::arguments() {
    if (!arguments_.empty()) return arguments_;
    for (char** word = commandLine; *word; ++word) {
        arguments_.push_back(stringWithFileSystemRepresentation(*word));
    }
    return arguments_;
}

NSString NSProcessInfo::environmentValue(const char* name) const {
    const char* value = getenv(name);
    return value ? stringWithFileSystemRepresentation(value) : nullptr;
}

NSString NSProcessInfo::processName() const { return NSString::fromUTF8(program_invocation_short_name); }

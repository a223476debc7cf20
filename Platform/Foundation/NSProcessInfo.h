// SPDX-License-Identifier: Apache-2.0
//
// The running process: its arguments, its environment, and the versions that the platform would report.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <string>
#include <vector>

// The platform's version numbers as this system reports them: of the Foundation framework, and of the system.
constexpr double NSFoundationVersionNumber = 1151.16;
struct NSOperatingSystemVersion {
    int majorVersion, minorVersion, patchVersion;
};
constexpr NSOperatingSystemVersion kOperatingSystemVersion = {10, 10, 5};

class NSProcessInfo {
public:
    static NSProcessInfo& processInfo();

    // The command line, its first word included. Bytes that are not UTF-8 are U+DC80 to U+DCFF.
    const std::vector<NSString>& arguments();

    // nil when the variable is not set.
    NSString environmentValue(const char* name) const;

    NSString processName() const;

private:
    std::vector<NSString> arguments_;
};

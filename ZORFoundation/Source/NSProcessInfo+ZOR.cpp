// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"

#include "Platform/Foundation/NSAssertionHandler.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/Foundation/ProcessTable.h"
#include "Platform/Foundation/StringFormat.h"

#include <atomic>
#include <cmath>
#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr double kLion = 751.0, kMountainLion = 833.1, kMavericks = 945.0, kYosemite = 1056.0;

} // namespace

namespace NSProcessInfoZOR {

bool zorIsLionOrBetter(double foundationVersion) { return std::floor(foundationVersion) > kLion; }
bool zorIsMountainLionOrBetter(double foundationVersion) {
    return std::floor(foundationVersion) > kMountainLion;
}
bool zorIsMavericksOrBetter(double foundationVersion) { return std::floor(foundationVersion) > kMavericks; }
bool zorIsYosemiteOrBetter(double foundationVersion) { return std::floor(foundationVersion) > kYosemite; }

NSString zorOSVersionString() {
    return stringWithFormat("%d.%d.%d", kOperatingSystemVersion.majorVersion,
                            kOperatingSystemVersion.minorVersion, kOperatingSystemVersion.patchVersion);
}

unsigned zorNumberOfProcessors() {
    static std::atomic<unsigned> known{0};
    if (unsigned count = known) return count;
    long count = sysconf(_SC_NPROCESSORS_ONLN);
    if (count < 1) return 1;
    return known = unsigned(count);
}

uint64_t zorMaximumOpenFilesCount() {
    rlimit limit{};
    return getrlimit(RLIMIT_NOFILE, &limit) == 0 ? uint64_t(limit.rlim_cur) : 0;
}

void zorSetMaximumOpenFilesCount(uint64_t count) {
    rlimit limit{rlim_t(count), rlim_t(count)};
    setrlimit(RLIMIT_NOFILE, &limit);
}

bool zorIsInAppSandbox() { return NSUserDefaults::standardUserDefaults().boolForKey(u"ZORAppSandbox"); }

bool zorSupportsModernRuntime() {
#if defined(__x86_64__)
    return true;
#else
    return false;
#endif
}

bool zorIsBSDProcessRunning(const NSString& name) {
    bool running = false;
    if (!findProcessOfUser(getuid(), name.utf8(), running)) {
        NSAssertionHandler::currentHandler().handleFailureInFunction(
            u"+[NSProcessInfo(ZOR) zorIsBSDProcessRunning:]", u"ZORFoundation/Source/NSProcessInfo+ZOR",
            __LINE__, stringWithFormat("Invalid parameter not satisfying: %s", "err == 0"));
    }
    return running;
}

} // namespace NSProcessInfoZOR

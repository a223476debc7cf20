// SPDX-License-Identifier: Apache-2.0
//
// The filters were made with the program: making one takes longer than reading a short document.
#include "Platform/Sandbox/SystemCallFilter.h"

#include <cerrno>
#include <iterator>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

#include "SystemCallFilters.inc"

template <size_t N>
sock_fprog programOf(const sock_filter (&instructions)[N]) {
    return {N, const_cast<sock_filter*>(instructions)};
}

sock_fprog programFor(SystemCalls calls) {
    switch (calls) {
    case SystemCalls::reading: return programOf(kReadingFilter);
    case SystemCalls::containing: return programOf(kContainingFilter);
    case SystemCalls::startingOthers: return programOf(kStartingOthersFilter);
    case SystemCalls::otherProgram: return programOf(kOtherProgramFilter);
    case SystemCalls::sleeping: return programOf(kSleepingFilter);
    case SystemCalls::showingPages: return programOf(kShowingPagesFilter);
    case SystemCalls::showingOffline: break;
    }
    return programOf(kShowingOfflineFilter);
}

} // namespace

Wall filterSystemCalls(SystemCalls calls) {
    const sock_fprog program = programFor(calls);
    if (syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0, &program) == 0) return Wall::stands;
    return errno == ENOSYS || errno == EINVAL ? Wall::unknown : Wall::failed;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Sandbox/Sandbox.h"

#include "Platform/Sandbox/Landlock.h"
#include "Platform/Sandbox/SystemCallFilter.h"

#include <sys/prctl.h>

namespace {

// The sandbox that the process is in and that can still become narrower.
SandboxProfile& enteredProfile() {
    static SandboxProfile profile{SystemCalls::reading, true, {}, {}, {}, {}};
    return profile;
}

} // namespace

std::string enterSandbox(const SandboxProfile& profile) {
    enteredProfile() = profile;
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    std::string missing;
    if (profile.closesFiles && !closeFilesBut(profile)) missing = "Landlock";
    if (!filterSystemCalls(profile.calls)) missing += missing.empty() ? "seccomp" : " and seccomp";
    return missing;
}

void renounceOtherPrograms() {
    SandboxProfile narrower = enteredProfile();
    if (narrower.calls != SystemCalls::startingOthers) return;
    narrower.calls = SystemCalls::containing;
    narrower.executable.swap(narrower.readable);
    narrower.readable.insert(narrower.readable.end(), narrower.executable.begin(), narrower.executable.end());
    narrower.executable.clear();
    narrower.workspaces.clear();
    enterSandbox(narrower);
}

void confineToWorkspace(const std::string& folder) {
    SandboxProfile narrower = enteredProfile();
    if (narrower.calls != SystemCalls::startingOthers) return;
    narrower.writable = {"/dev/null"};
    narrower.workspaces = {folder};
    closeFilesBut(narrower);
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Sandbox/Sandbox.h"

#include "Platform/Sandbox/Landlock.h"
#include "Platform/Sandbox/SystemCallFilter.h"

#include <optional>
#include <sys/prctl.h>

namespace {

// The sandbox that the process is in, if any, and that can still become narrower.
std::optional<SandboxProfile>& enteredProfile() {
    static std::optional<SandboxProfile> profile;
    return profile;
}

bool allowsOtherPrograms() {
    return enteredProfile() && enteredProfile()->calls == SystemCalls::startingOthers;
}

bool isNotFailed(Wall wall) { return wall != Wall::failed; }

} // namespace

bool enterSandbox(const SandboxProfile& profile, std::string& missing) {
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    const Wall files = profile.closesFiles ? closeFilesBut(profile) : Wall::stands;
    const Wall calls = filterSystemCalls(profile.calls);
    missing = files == Wall::unknown ? "Landlock" : "";
    if (calls == Wall::unknown) missing += missing.empty() ? "seccomp" : " and seccomp";
    enteredProfile() = profile;
    return isNotFailed(files) && isNotFailed(calls);
}

bool renounceOtherPrograms() {
    if (!allowsOtherPrograms()) return true;
    SandboxProfile narrower = *enteredProfile();
    narrower.calls = SystemCalls::containing;
    narrower.executable.clear();
    narrower.workspaces.clear();
    std::string missing;
    return enterSandbox(narrower, missing);
}

void renounceAllButSleep() {
    if (allowsOtherPrograms()) filterSystemCalls(SystemCalls::sleeping);
}

bool confineToWork() {
    if (!enteredProfile()) return true;
    return isNotFailed(closeAllToWriting()) && isNotFailed(filterSystemCalls(SystemCalls::reading));
}

bool confineToWorkspace(const std::string& folder) {
    if (!allowsOtherPrograms()) return true;
    SandboxProfile narrower = *enteredProfile();
    narrower.writable = {"/dev/null"};
    narrower.workspaces = {folder};
    return isNotFailed(closeFilesBut(narrower)) && isNotFailed(filterSystemCalls(SystemCalls::otherProgram));
}

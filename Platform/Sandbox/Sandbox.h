// SPDX-License-Identifier: Apache-2.0
//
// Shutting the process in: what it may read, write and ask of the system from now on. There is no way out,
// and everything that the process starts is shut in with it. Two layers of the kernel do it, Landlock for
// files and the network and a seccomp filter for system calls; one that the kernel lacks is left out.
#pragma once

#include <string>
#include <vector>

// The system calls that are left. A call that is not allowed fails with ENOSYS, as one that the kernel does
// not have, or with EPERM.
enum class SystemCalls {
    reading,        // files, memory, threads; no process, no program, no socket
    containing,     // and child processes, which run nothing but this program
    startingOthers, // and other programs; still no socket
    otherProgram,   // for such a program, on top of the last: no changes of attributes, no leaving its group
    sleeping,       // for a thread that sleeps until the process ends
    showingPages,   // whatever a web engine with its own sandbox needs
    showingOffline, // the same without any network, for all of its processes
};

struct SandboxProfile {
    SystemCalls calls = SystemCalls::reading;
    // Whether files are closed but for those below. The sandbox of a web engine cannot be built inside.
    bool closesFiles = true;
    std::vector<std::string> readable;   // files, and folders with all that they hold
    std::vector<std::string> executable; // the same, for other programs; they can be read too
    std::vector<std::string> writable;   // files that may be written; folders in and below which files may be
                                         // made, exchanged and removed
    std::vector<std::string>
        workspaces; // folders in which anything may be made and removed, for other programs
};

// What has become of a layer: the kernel may not know it.
enum class Wall { stands, unknown, failed };

// Enters a sandbox. What does not exist of the profile's files stays closed. False when a layer that the
// system has could not be put up; `missing` names those that it has not. To be called before any thread is
// started.
bool enterSandbox(const SandboxProfile& profile, std::string& missing);

// After a sandbox that allows other programs: takes back the leave to start them, and all that the profile
// opens for them. True also in another sandbox or in none, where there is nothing to take.
bool renounceOtherPrograms();

// For a thread that was there before and will only sleep now: it is not to be a way around what others
// renounce.
void renounceAllButSleep();

// In a child that does one piece of work: no further process, and nothing can be written any more but what is
// open.
bool confineToWork();

// In a child that is to become another program: the one workspace that is left to it. It can write nothing
// else but /dev/null, whatever was writable before.
bool confineToWorkspace(const std::string& folder);

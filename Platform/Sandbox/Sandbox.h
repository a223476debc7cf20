// SPDX-License-Identifier: Apache-2.0
//
// Shutting the process in: what it may read, write and ask of the system from now on. There is no way out,
// and everything that the process starts is shut in with it. Two layers of the kernel do it, Landlock for
// files and the network and a seccomp filter for system calls; one that the kernel lacks is left out.
#pragma once

#include <string>
#include <vector>

// The system calls that are left. A call that is not allowed fails with EPERM or, when it is none that
// anybody here should know, with ENOSYS.
enum class SystemCalls {
    reading,        // files, memory, threads; no process, no program, no socket
    containing,     // and child processes, which run nothing but this program
    startingOthers, // and other programs; still no socket
    showingPages,   // whatever a web engine with its own sandbox needs
    showingOffline, // the same without any network, for all of its processes
};

struct SandboxProfile {
    SystemCalls calls = SystemCalls::reading;
    // Whether files are closed but for those below. The sandbox of a web engine cannot be built inside.
    bool closesFiles = true;
    std::vector<std::string> readable;   // files, and folders with all that they hold
    std::vector<std::string> executable; // the same; they are readable too
    std::vector<std::string> writable;   // files that may be written; folders in which files may be made,
                                         // exchanged and removed
    std::vector<std::string> workspaces; // folders in which anything may be made and removed
};

// Enters a sandbox. What does not exist of the profile's files stays closed. Answers the names of the layers
// that the system does not offer, "" when it has all. To be called before any thread is started.
std::string enterSandbox(const SandboxProfile& profile);

// After a sandbox that allows other programs: takes back the leave to start them, and the workspaces. Does
// nothing in another sandbox or in none.
void renounceOtherPrograms();

// In a child that is to become another program: the one workspace that is left to it. It can write nothing
// else but /dev/null, whatever was writable before. Does nothing in another sandbox or in none.
void confineToWorkspace(const std::string& folder);

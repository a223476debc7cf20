// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Confinement.h"

#include "Platform/Foundation/AtomicFile.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSDebug.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/SearchKit/Importing.h"
#include "Source/Tools/texttool/Limits.h"
#include "Source/Tools/texttool/Report.h"

#include <cstdlib>

namespace {

// Libraries and their data, and what the C library looks up by itself.
constexpr const char* kSystemFiles[] = {"/usr", "/etc/ld.so.cache", "/etc/localtime"};

// What programs expect beside that: an interpreter's settings, commands, devices without contents.
constexpr const char* kProgramFiles[] = {"/bin",      "/sbin",     "/opt",        "/etc",
                                         "/dev/null", "/dev/zero", "/dev/urandom"};

void append(std::vector<std::string>& list, const std::vector<std::string>& more) {
    list.insert(list.end(), more.begin(), more.end());
}

std::string workspace() {
    const char* folder = getenv("TMPDIR");
    return folder && folder[0] == '/' ? folder : "/tmp";
}

// A child prints nothing, and its limits begin where the process stands.
void allowChildren(SandboxProfile& profile) {
    profile.writable.push_back("/dev/null");
    profile.readable.push_back("/proc/self/statm");
}

// Importers are chosen by what the document is: until then any that somebody has put there may be the one.
void allowImporters(SandboxProfile& profile) {
    loadImporters();
    append(profile.readable, foldersOfImporting());
    profile.executable.swap(profile.readable);
    profile.executable.insert(profile.executable.end(), std::begin(kProgramFiles), std::end(kProgramFiles));
    profile.workspaces.push_back(workspace());
}

bool showsPages(SystemCalls calls) {
    return calls == SystemCalls::showingPages || calls == SystemCalls::showingOffline;
}

SandboxProfile profileFor(SystemCalls calls, const NSString& path) {
    SandboxProfile profile;
    profile.calls = calls;
    profile.closesFiles = !showsPages(calls);
    profile.readable.assign(std::begin(kSystemFiles), std::end(kSystemFiles));
    append(profile.readable, moduleFolders());
    profile.readable.push_back(fileSystemRepresentation(path));
    if (NSString output = outputPath())
        profile.writable.push_back(AtomicFile(fileSystemRepresentation(output)).place());
    if (calls == SystemCalls::containing || calls == SystemCalls::startingOthers) allowChildren(profile);
    if (calls == SystemCalls::startingOthers) allowImporters(profile);
    return profile;
}

} // namespace

void confine(SystemCalls calls, const NSString& path) {
#ifndef TEXTTOOL_SANITIZED // which needs more of the system, and more memory, than any document
    setLimits(path);
    if (!showsPages(calls)) limitMemory();
    if (NSUserDefaults::standardUserDefaults().boolForKey(NSString(u"DisableSandbox"))) return;
    NSLogOpen();
    const std::string missing = enterSandbox(profileFor(calls, path));
    if (!missing.empty()) debugLog("The system offers no %s: the sandbox is without it", missing.c_str());
#endif
}

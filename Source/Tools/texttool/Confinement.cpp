// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Confinement.h"

#include "Platform/Foundation/AtomicFile.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSDebug.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSUserDefaults.h"
#include "Platform/SearchKit/Importing.h"
#include "Source/Tools/texttool/Limits.h"
#include "Source/Tools/texttool/Report.h"

#include <iterator>

namespace {

// A sanitizer needs more of the system, and more memory, than any document.
#ifdef TEXTTOOL_SANITIZED
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

// Libraries and their data, and what the C library looks up by itself.
constexpr const char* kSystemFiles[] = {"/usr", "/etc/ld.so.cache", "/etc/localtime"};

// What programs expect beside that: settings of interpreters, devices without contents.
constexpr const char* kProgramFiles[] = {"/usr", "/etc", "/dev/null", "/dev/zero", "/dev/urandom"};

void append(std::vector<std::string>& list, const std::vector<std::string>& more) {
    list.insert(list.end(), more.begin(), more.end());
}

// A child prints nothing, and its limits begin where the process stands.
void allowChildren(SandboxProfile& profile) {
    profile.writable.push_back("/dev/null");
    profile.readable.push_back("/proc/self/statm");
}

// Importers are chosen by what the document is: until then any that somebody has put there may be the one.
void allowImporters(SandboxProfile& profile) {
    loadImporters();
    append(profile.readable, filesOfImporting());
    profile.executable.assign(std::begin(kProgramFiles), std::end(kProgramFiles));
    append(profile.executable, programsOfImporting());
    profile.workspaces.push_back(fileSystemRepresentation(NSTemporaryDirectory()));
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
    setLimits(path);
    if (isSanitized) return;
    if (!showsPages(calls)) limitMemory();
    if (NSUserDefaults::standardUserDefaults().boolForKey(NSString(u"DisableSandbox"))) return;
    NSLogOpen();
    std::string missing;
    if (!enterSandbox(profileFor(calls, path), missing))
        NSException(NSInternalInconsistencyException, u"The sandbox cannot be entered").raise();
    if (!missing.empty()) debugLog("The system offers no %s: the sandbox is without it", missing.c_str());
}

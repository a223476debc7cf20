// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/SandboxProbe.h"

#include <unistd.h>

namespace {

// Where the engine looks for the programs that its sandbox is made of.
constexpr const char* kSandbox = "/usr/bin/bwrap";
constexpr const char* kBusFilter = "/usr/bin/xdg-dbus-proxy";

} // namespace

SandboxProbe::SandboxProbe() {
    if (access(kSandbox, X_OK) != 0 || access(kBusFilter, X_OK) != 0) return;
    // Ended before its time it would leave a process behind, which waits for the one that was ended.
    trial_ = ChildProcess({kSandbox, "--die-with-parent", "--ro-bind", "/", "/", "--proc", "/proc", "--dev",
                           "/dev", "--unshare-pid", "--unshare-net", "--unshare-uts", "/usr/bin/true"},
                          nullptr, ChildProcess::End::byItself);
}

bool SandboxProbe::succeeded() { return trial_.wait() == 0; }

// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/RuntimeFolder.h"

#include "Platform/Foundation/NSPathUtilities.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

// Runs in the child: system calls only, since other threads may have held any lock. Whoever waits for the
// end of this process's output must not wait for the child's, and what ends this process from the terminal
// must not end the child.
[[noreturn]] void removeAtEnd(const char* folder, int life) {
    for (int signalNumber : {SIGHUP, SIGINT, SIGTERM, SIGQUIT}) signal(signalNumber, SIG_IGN);
    dup2(life, 0);
    close_range(1, ~0U, 0);
    char byte;
    while (read(0, &byte, 1) < 0) {
    }
    execl("/bin/rm", "rm", "-rf", "--", folder, nullptr);
    _exit(1);
}

// A new folder in the first of the places where there can be one; "" when there is none.
std::string makeFolder() {
    for (const std::string& place :
         {fileSystemRepresentation(NSTemporaryDirectory()), std::string("/tmp"), std::string("/dev/shm")}) {
        std::string folder = place + "/texttool-XXXXXX";
        if (mkdtemp(folder.data())) return folder;
    }
    return {};
}

} // namespace

RuntimeFolder::RuntimeFolder() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    const FileDescriptor reading(ends[0]);
    life_ = FileDescriptor(ends[1]);
    path_ = makeFolder();
    if (path_.empty()) return;
    const pid_t child = fork();
    if (child == 0) removeAtEnd(path_.c_str(), ends[0]);
    if (child > 0) return;
    rmdir(path_.c_str());
    path_.clear();
}

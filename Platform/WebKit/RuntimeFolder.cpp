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

} // namespace

RuntimeFolder::RuntimeFolder() {
    std::string folder = fileSystemRepresentation(NSTemporaryDirectory()) + "/texttool-XXXXXX";
    int ends[2];
    if (!mkdtemp(folder.data())) return;
    const bool hasPipe = pipe2(ends, O_CLOEXEC) == 0;
    const FileDescriptor reading(hasPipe ? ends[0] : -1);
    life_ = FileDescriptor(hasPipe ? ends[1] : -1);
    const pid_t child = hasPipe ? fork() : -1;
    if (child == 0) removeAtEnd(folder.c_str(), ends[0]);
    if (child > 0) {
        path_ = folder;
    } else {
        rmdir(folder.c_str());
    }
}

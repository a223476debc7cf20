// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kNotStarted = 127;

// Runs in the child between fork and exec: system calls only.
[[noreturn]] void become(char* const* arguments, int inherited, ChildProcess::End end, pid_t parent) {
    // The request to end comes when the parent has gone, so that the program can clear away what it made.
    if (end == ChildProcess::End::withParent) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent) _exit(kNotStarted);
    } else {
        setsid(); // and out of reach of the terminal
    }
    signal(SIGPIPE, SIG_DFL);
    const int nothing = open("/dev/null", O_RDWR);
    for (int fd = 0; fd < 3; ++fd) dup2(nothing, fd);
    if (inherited >= 0) fcntl(inherited, F_SETFD, 0);
    execvp(arguments[0], arguments);
    _exit(kNotStarted);
}

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, const FileDescriptor* inherited, End end)
    : end_(end) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ == 0) become(arguments.data(), inherited ? inherited->get() : -1, end, parent);
}

int ChildProcess::wait() {
    int status = 0;
    pid_t ended;
    do {
        ended = pid_ > 0 ? waitpid(pid_, &status, 0) : -1;
    } while (ended < 0 && pid_ > 0 && errno == EINTR);
    pid_ = -1;
    return ended > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

ChildProcess::~ChildProcess() {
    if (pid_ <= 0) return;
    if (end_ == End::withParent) kill(pid_, SIGTERM);
    wait();
}

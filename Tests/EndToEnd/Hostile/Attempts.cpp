// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/Hostile/Attempts.h"

#include <arpa/inet.h>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <netdb.h>
#include <new>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

std::string outcome(bool done) { return done ? "done" : strerrorname_np(errno); }

bool connects() {
    const int socketOrNot = socket(AF_INET, SOCK_STREAM, 0);
    if (socketOrNot < 0) return false;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    // Nobody listens: refused is as good as connected.
    return connect(socketOrNot, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 ||
           errno == ECONNREFUSED;
}

bool resolves() {
    addrinfo* found = nullptr;
    return getaddrinfo("localhost", "80", nullptr, &found) == 0;
}

bool opens(const std::string& path, int flags) { return open(path.c_str(), flags | O_CLOEXEC, 0600) >= 0; }

bool executes(const std::string& path) {
    char* arguments[] = {const_cast<char*>(path.c_str()), nullptr};
    pid_t child = 0;
    errno = posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ);
    if (errno != 0) return false;
    waitpid(child, nullptr, 0);
    return true;
}

bool forks() {
    const pid_t child = fork();
    if (child == 0) _exit(0);
    return child > 0 && waitpid(child, nullptr, 0) == child;
}

// Until no more processes are to be had, and far more than any system has at a time.
bool breeds() {
    std::vector<pid_t> children;
    while (children.size() < 20'000) {
        const pid_t child = fork();
        if (child == 0) {
            for (;;) pause();
        }
        if (child < 0) break;
        children.push_back(child);
    }
    const int reason = errno;
    for (pid_t child : children) kill(child, SIGKILL);
    errno = reason;
    return children.size() == 20'000;
}

void exhaustMemory() {
    std::vector<std::string> all;
    for (;;) all.emplace_back(size_t(1) << 24, 'x');
}

volatile bool goesOn = true;

int recurse(int level) {
    volatile char frame[4096] = {};
    return goesOn ? recurse(level + 1) + frame[level % 4096] : 0;
}

} // namespace

std::string attempt(const std::string& command) {
    const size_t blank = command.find(' ');
    const std::string verb = command.substr(0, blank);
    const std::string path = blank == command.npos ? "" : command.substr(blank + 1);
    errno = 0;
    if (verb == "connect") return outcome(connects());
    if (verb == "resolve") return resolves() ? "done" : "unknown";
    if (verb == "read") return outcome(opens(path, O_RDONLY));
    if (verb == "write") return outcome(opens(path, O_WRONLY));
    if (verb == "make") return outcome(opens(path, O_WRONLY | O_CREAT));
    if (verb == "remove") return outcome(unlink(path.c_str()) == 0);
    if (verb == "execute") return outcome(executes(path));
    if (verb == "fork") return outcome(forks());
    if (verb == "breed") return outcome(breeds());
    if (verb == "trace") return outcome(ptrace(PTRACE_ATTACH, getppid(), nullptr, nullptr) == 0);
    if (verb == "signal") return outcome(kill(getppid(), 0) == 0);
    if (verb == "limit") {
        const rlimit second{1, 1};
        return outcome(prlimit(getppid(), RLIMIT_CPU, &second, nullptr) == 0);
    }
    if (verb == "type") return outcome(ioctl(STDIN_FILENO, TIOCSTI, "x") == 0);
    if (verb == "chmod") return outcome(chmod(path.c_str(), 0777) == 0);
    if (verb == "leave") return outcome(setsid() > 0);
    if (verb == "share") {
        const void* memory =
            mmap(nullptr, 1 << 20, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        return outcome(memory != MAP_FAILED);
    }
    if (verb == "inherit") return outcome(fcntl(9, F_GETFD) >= 0);
    if (verb == "print") return outcome(write(STDOUT_FILENO, "rubbish", 7) == 7);
    if (verb == "exhaust") exhaustMemory();
    while (verb == "loop" && goesOn) continue;
    if (verb == "recurse") return std::to_string(recurse(0));
    if (verb == "abort") abort();
    return "unknown command";
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Containment.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Sandbox/Sandbox.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWorkIsDone = 86; // unlike any status with which a library would end the process

void limit(__rlimit_resource resource, rlim_t value) {
    const rlimit both{value, value};
    setrlimit(resource, &both);
}

// Bytes of data that the process has already: the sixth number, in pages.
rlim_t dataInUse() {
    char text[256] = {};
    const FileDescriptor file(open("/proc/self/statm", O_RDONLY | O_CLOEXEC));
    if (read(file.get(), text, sizeof text - 1) <= 0) return 0;
    const char* number = text;
    for (int i = 0; i < 5 && number; ++i) number = strchr(number + 1, ' ');
    return number ? strtoul(number, nullptr, 10) * rlim_t(sysconf(_SC_PAGESIZE)) : 0;
}

// What a child has to know of the process that it was: in a sandbox it cannot look for itself.
struct Parent {
    pid_t process;
    rlim_t data; // bytes
};

// Of processor time; the signal's own action ends the process.
void endAfter(std::chrono::microseconds time) {
#ifdef TEXTTOOL_SANITIZED
    time *= 10; // the sanitizer's own share
#endif
    signal(SIGPROF, SIG_DFL);
    const itimerval once{{0, 0}, {time.count() / 1'000'000, time.count() % 1'000'000}};
    setitimer(ITIMER_PROF, &once, nullptr);
}

[[noreturn]] void beChild(int answerPipe, const std::function<std::string()>& work,
                          const ContainmentLimits& limits, const Parent& parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent.process) _exit(1);
    // A crash here is no crash of the request, so nothing is said of it.
    for (int fatal : {SIGSEGV, SIGBUS, SIGABRT, SIGFPE, SIGILL, SIGTRAP, SIGSYS, SIGXCPU})
        signal(fatal, SIG_DFL);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nowhere, standard);
    limit(RLIMIT_CORE, 0);
    endAfter(limits.processorTime);
    limit(RLIMIT_DATA, parent.data + limits.memory);
    if (!confineToWork()) _exit(1);
    _exit(writeAll(answerPipe, work()) == 0 ? kWorkIsDone : 1);
}

// Reads to the end of the pipe. False when time or the allowance ran out.
bool readAnswer(int answerPipe, std::string& answer, const ContainmentLimits& limits) {
    const Clock::time_point end = Clock::now() + limits.wallTime;
    char piece[4096];
    while (answer.size() <= limits.answer) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        pollfd waiting{answerPipe, POLLIN, 0};
        const int ready = left.count() > 0 ? poll(&waiting, 1, int(left.count())) : 0;
        if (ready == 0) return false;
        const ssize_t count = ready > 0 ? read(answerPipe, piece, sizeof piece) : -1;
        if (count == 0) return true;
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) answer.append(piece, size_t(count));
    }
    return false;
}

} // namespace

bool runContained(const std::function<std::string()>& work, std::string& answer,
                  const ContainmentLimits& limits) {
    answer.clear();
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return false;
    const FileDescriptor readEnd(ends[0]);
    FileDescriptor writeEnd(ends[1]);
    const Parent parent{getpid(), dataInUse()};
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) beChild(ends[1], work, limits, parent);
    writeEnd = FileDescriptor();
    const bool isComplete = readAnswer(ends[0], answer, limits);
    if (!isComplete) kill(child, SIGKILL);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return isComplete && WIFEXITED(status) && WEXITSTATUS(status) == kWorkIsDone;
}

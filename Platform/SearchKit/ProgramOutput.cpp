// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/ProgramOutput.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Sandbox/Sandbox.h"
#include "Platform/SearchKit/TextLines.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kNotStarted = 127;

void limit(__rlimit_resource resource, uint64_t value) {
    const rlimit both{value, value};
    setrlimit(resource, &both);
}

[[noreturn]] void beProgram(const char* file, char* const* arguments, int output,
                            const ProgramLimits& limits) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    setpgid(0, 0);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(nowhere, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    if (!limits.folder.empty()) setenv("TMPDIR", limits.folder.c_str(), 1);
    if (!confineToWorkspace(limits.folder)) _exit(kNotStarted);
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_CPU, uint64_t(limits.time.count()));
    limit(RLIMIT_AS, limits.memory);
    limit(RLIMIT_FSIZE, limits.written);
    execv(file, arguments);
    _exit(kNotStarted);
}

// "" when all was read.
std::string readToEnd(int pipe, const ProgramLimits& limits, std::string& output) {
    const Clock::time_point end = Clock::now() + limits.time;
    char piece[1 << 16];
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        pollfd waiting{pipe, POLLIN, 0};
        const int ready = left.count() > 0 ? poll(&waiting, 1, int(left.count())) : 0;
        if (ready == 0) return "it took too long";
        const ssize_t count = ready > 0 ? read(pipe, piece, sizeof piece) : -1;
        if (count == 0) return "";
        if (count < 0 && errno != EINTR) return "its output cannot be read";
        if (count > 0) output.append(piece, size_t(count));
        if (output.size() > limits.output) return "it wrote too much";
    }
}

// Whether the program ends in time; it is not reaped yet, so that its group's number stays its own. One that
// closes its output can go on: it has the rest of its time.
bool endsBefore(pid_t child, Clock::time_point end) {
    for (siginfo_t info{}; info.si_pid != child; usleep(500)) {
        if (Clock::now() >= end) return false;
        waitid(P_PID, id_t(child), &info, WEXITED | WNOHANG | WNOWAIT);
    }
    return true;
}

// Ends all of the group and answers what became of the program, "" for a success.
std::string reap(pid_t child) {
    kill(-child, SIGKILL);
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return "it cannot be waited for";
    }
    if (WIFSIGNALED(status)) return "it ended with signal " + std::to_string(WTERMSIG(status));
    const int code = WEXITSTATUS(status);
    return code == 0 ? "" : "it ended with status " + std::to_string(code);
}

bool isProgram(const std::string& file) {
    struct stat info {};
    return stat(file.c_str(), &info) == 0 && S_ISREG(info.st_mode) && access(file.c_str(), X_OK) == 0;
}

} // namespace

std::vector<std::string> programFolders() {
    std::vector<std::string> folders;
    const char* variable = getenv("PATH");
    for (std::string_view rest = variable ? variable : "/usr/local/bin:/usr/bin:/bin"; !rest.empty();) {
        const std::string_view folder = takePart(rest, ':');
        if (folder.substr(0, 1) == "/") folders.emplace_back(folder);
    }
    return folders;
}

std::string programFile(const std::string& name) {
    if (name.find('/') != name.npos) return isProgram(name) ? name : "";
    for (const std::string& folder : programFolders()) {
        std::string file = folder;
        file.append("/").append(name);
        if (isProgram(file)) return file;
    }
    return "";
}

bool readProgramOutput(const std::vector<std::string>& command, const ProgramLimits& limits,
                       std::string& output, std::string& why) {
    output.clear();
    const std::string file = command.empty() ? "" : programFile(command[0]);
    int ends[2];
    if (file.empty() || pipe2(ends, O_CLOEXEC) != 0) {
        why = "it cannot be started";
        return false;
    }
    const FileDescriptor readEnd(ends[0]);
    FileDescriptor writeEnd(ends[1]);
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    const Clock::time_point end = Clock::now() + limits.time;
    const pid_t child = fork();
    if (child == 0) beProgram(file.c_str(), arguments.data(), ends[1], limits);
    if (child < 0) {
        why = "it cannot be started";
        return false;
    }
    setpgid(child, child); // both sides: whoever comes first
    writeEnd = FileDescriptor();
    why = readToEnd(ends[0], limits, output);
    if (why.empty() && !endsBefore(child, end)) why = "it took too long";
    const std::string ending = reap(child);
    if (why.empty()) why = ending;
    return why.empty();
}

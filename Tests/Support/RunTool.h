// SPDX-License-Identifier: Apache-2.0
//
// Runs a built program as a process of its own, as a host does, and keeps what came of it. The process gets
// an environment of its own: nothing of the developer's settings reaches it.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <vector>

struct ToolCommand {
    std::vector<std::string> arguments = {}; // without the program's name
    std::map<std::string, std::string> environment = {};
    std::string directory = {};               // where it runs; "" for the test's own
    std::string input = {};                   // standard input
    std::string program = TEXTTOOL_PROGRAM;   // a path, or a name in /usr/bin and /bin
    std::string outputPath = {};              // standard output goes there and not into the result
    bool outputClosed = false;                // no standard output at all
    std::chrono::milliseconds limit{120'000}; // wall time, after which the process is killed
};

struct ToolResult {
    std::string output; // standard output's bytes
    std::string errors; // standard error's
    int status = -1;    // -1 when a signal or the time limit ended the process
    int signal = 0;     // SIGKILL after the time limit
    bool timedOut = false;
    pid_t pid = 0;
};

// A process that runs; killed when its handle goes before `wait` was called.
class RunningTool {
public:
    // A program that cannot be started is a failure of the test, and a result with status -1.
    explicit RunningTool(const ToolCommand& command);
    ~RunningTool();
    RunningTool(const RunningTool&) = delete;
    RunningTool& operator=(const RunningTool&) = delete;

    pid_t pid() const { return pid_; }
    // True until the process has ended, or has been waited for.
    bool isRunning();
    // Nothing happens when the process is no longer there.
    void send(int signal);
    ToolResult wait();

private:
    int output_ = -1, errors_ = -1;
    pid_t pid_ = -1;
    bool ended_ = false;
    int waitStatus_ = 0;
    std::chrono::steady_clock::time_point end_;
};

ToolResult runTool(const ToolCommand& command);

// The texts that the tool logged, each without the date, the process and the thread in front of it. A line in
// another form, or of another process, is a failure of the test.
std::vector<std::string> logLines(const ToolResult& result);

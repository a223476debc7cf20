// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/RunTool.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <regex>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

int memoryFile(const char* name, std::string_view contents = {}) {
    int fd = memfd_create(name, MFD_CLOEXEC);
    EXPECT_EQ(write(fd, contents.data(), contents.size()), ssize_t(contents.size()));
    lseek(fd, 0, SEEK_SET);
    return fd;
}

std::string contentsOf(int fd) {
    std::string bytes(size_t(lseek(fd, 0, SEEK_END)), '\0');
    EXPECT_EQ(pread(fd, bytes.data(), bytes.size(), 0), ssize_t(bytes.size()));
    return bytes;
}

std::vector<std::string> environmentOf(const ToolCommand& command) {
    std::map<std::string, std::string> variables = {{"PATH", "/usr/bin:/bin"},
                                                    {"TZ", "UTC0"},
                                                    {"XDG_CONFIG_HOME", "/nonexistent"},
                                                    {"XDG_CONFIG_DIRS", "/nonexistent"}};
    for (const char* name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (const char* value = getenv(name)) variables[name] = value;
    }
    for (const auto& [name, value] : command.environment) variables[name] = value;
    std::vector<std::string> lines;
    for (const auto& [name, value] : variables) lines.push_back(name + "=" + value);
    return lines;
}

std::vector<char*> pointersTo(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

void connectOutput(posix_spawn_file_actions_t& actions, const ToolCommand& command, int collected) {
    if (command.outputClosed) {
        posix_spawn_file_actions_addclose(&actions, STDOUT_FILENO);
    } else if (!command.outputPath.empty()) {
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, command.outputPath.c_str(), O_WRONLY, 0);
    } else {
        posix_spawn_file_actions_adddup2(&actions, collected, STDOUT_FILENO);
    }
}

} // namespace

RunningTool::RunningTool(const ToolCommand& command)
    : output_(memoryFile("output")), errors_(memoryFile("errors")),
      end_(std::chrono::steady_clock::now() + command.limit) {
    std::vector<std::string> words = {command.program}, variables = environmentOf(command);
    words.insert(words.end(), command.arguments.begin(), command.arguments.end());
    int input = memoryFile("input", command.input);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    connectOutput(actions, command, output_);
    posix_spawn_file_actions_adddup2(&actions, errors_, STDERR_FILENO);
    if (!command.directory.empty()) posix_spawn_file_actions_addchdir_np(&actions, command.directory.c_str());
    int failure = posix_spawnp(&pid_, command.program.c_str(), &actions, nullptr, pointersTo(words).data(),
                               pointersTo(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    close(input);
    if (failure != 0) {
        ADD_FAILURE() << command.program << ": " << strerror(failure);
        ended_ = true;
        waitStatus_ = W_EXITCODE(255, 0);
    }
}

RunningTool::~RunningTool() {
    if (isRunning()) {
        send(SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    close(output_);
    close(errors_);
}

bool RunningTool::isRunning() {
    if (!ended_) ended_ = waitpid(pid_, &waitStatus_, WNOHANG) == pid_;
    return !ended_;
}

void RunningTool::send(int signal) {
    if (isRunning()) kill(pid_, signal);
}

ToolResult RunningTool::wait() {
    ToolResult result;
    while (isRunning()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (result.timedOut || std::chrono::steady_clock::now() < end_) continue;
        result.timedOut = true;
        send(SIGKILL);
    }
    if (WIFEXITED(waitStatus_)) result.status = WEXITSTATUS(waitStatus_);
    if (WIFSIGNALED(waitStatus_)) result.signal = WTERMSIG(waitStatus_);
    result.pid = pid_;
    result.output = contentsOf(output_);
    result.errors = contentsOf(errors_);
    return result;
}

ToolResult runTool(const ToolCommand& command) { return RunningTool(command).wait(); }

std::vector<std::string> logLines(const ToolResult& result) {
    static const std::regex form(
        R"((\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{6}[+-]\d{4} ([^\[]+)\[(\d+):(\d+)\] )(.*))");
    std::vector<std::string> texts;
    for (size_t at = 0; at < result.errors.size();) {
        size_t end = std::min(result.errors.find('\n', at), result.errors.size());
        std::string line = result.errors.substr(at, end - at);
        at = end + 1;
        std::smatch parts;
        if (std::regex_match(line, parts, form)) {
            EXPECT_EQ(parts[2], "texttool");
            EXPECT_EQ(parts[3], std::to_string(result.pid));
            texts.push_back(parts[5]);
        } else if (texts.empty()) {
            ADD_FAILURE() << "not in the log's form: " << line;
        } else {
            texts.back() += "\n" + line; // a text of several lines
        }
    }
    return texts;
}

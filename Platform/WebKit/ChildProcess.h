// SPDX-License-Identifier: Apache-2.0
//
// A program that runs for this process, and commonly ends with it, however this process ends.
#pragma once

#include "Platform/Foundation/FileDescriptor.h"

#include <string>
#include <sys/types.h>
#include <vector>

class ChildProcess {
public:
    // Programs that end by themselves in no time may have to be let alone until then.
    enum class End { withParent, byItself };

    ChildProcess() = default;
    // Starts a program, looked for in PATH, with no input and its chatter dropped. Of the descriptors it gets
    // `inherited`, if any, under its own number.
    explicit ChildProcess(const std::vector<std::string>& command, const FileDescriptor* inherited = nullptr,
                          End end = End::withParent);
    ChildProcess(ChildProcess&& other) noexcept : pid_(std::exchange(other.pid_, -1)), end_(other.end_) {}
    ChildProcess& operator=(ChildProcess&& other) noexcept {
        std::swap(pid_, other.pid_);
        std::swap(end_, other.end_);
        return *this;
    }
    // Asks it to end, unless it does so by itself, and waits until it has.
    ~ChildProcess();

    // Its exit status: 127 for a program that could not be started, -1 for one that a signal ended.
    int wait();

private:
    pid_t pid_ = -1;
    End end_ = End::withParent;
};

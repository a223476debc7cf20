// SPDX-License-Identifier: Apache-2.0
//
// A program that runs for this process and ends with it, however this process ends.
#pragma once

#include "Platform/Foundation/FileDescriptor.h"

#include <string>
#include <sys/types.h>
#include <vector>

class ChildProcess {
public:
    ChildProcess() = default;
    // Starts a program, looked for in PATH, with no input and its chatter dropped. Of the descriptors it gets
    // `inherited`, if any, under its own number.
    explicit ChildProcess(const std::vector<std::string>& command, const FileDescriptor* inherited = nullptr);
    ChildProcess(ChildProcess&& other) noexcept : pid_(std::exchange(other.pid_, -1)) {}
    ChildProcess& operator=(ChildProcess&& other) noexcept {
        std::swap(pid_, other.pid_);
        return *this;
    }
    // Asks it to end and waits until it has.
    ~ChildProcess();

    // Its exit status: 127 for a program that could not be started, -1 for one that a signal ended.
    int wait();

private:
    pid_t pid_ = -1;
};

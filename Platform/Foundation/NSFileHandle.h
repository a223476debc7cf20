// SPDX-License-Identifier: Apache-2.0
//
// Standard output as the platform hands it out: written whole, closed once.
#pragma once

#include "Platform/Foundation/NSData.h"

class NSFileHandle {
public:
    // Shared by the whole process.
    static NSFileHandle& fileHandleWithStandardOutput();

    // Keeps standard output for the handle alone: what anybody else in the process, or a program that it
    // starts, writes there goes to standard error. To be called before the first use of the handle.
    static void reserveStandardOutput();

    // -1 when closed.
    int fileDescriptor() const { return fd_; }

    // Raises a file-handle exception when the handle is closed or the system refuses the bytes.
    void writeData(const NSData& data);

    // Raises a file-handle exception when the handle is closed already.
    void closeFile();

private:
    explicit NSFileHandle(int fd) : fd_(fd) {}

    int fd_; // -1 when closed
};

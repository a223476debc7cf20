// SPDX-License-Identifier: Apache-2.0
//
// Standard output as the platform hands it out: written whole, closed once.
#pragma once

#include "Platform/Foundation/NSData.h"

class NSFileHandle {
public:
    // Shared by the whole process.
    static NSFileHandle& fileHandleWithStandardOutput();

    // Raises a file-handle exception when the handle is closed or the system refuses the bytes.
    void writeData(const NSData& data);

    // Raises a file-handle exception when the handle is closed already.
    void closeFile();

private:
    explicit NSFileHandle(int fd) : fd_(fd) {}

    int fd_; // -1 when closed
};

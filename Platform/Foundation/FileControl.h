// SPDX-License-Identifier: Apache-2.0
//
// fcntl with the platform's command that this system does not have.
#pragma once

#include <cstddef>

// The path of the open file, NUL-terminated, into a buffer of kPathBufferSize bytes.
constexpr int F_GETPATH = 50;
constexpr size_t kPathBufferSize = 1024;

// -1 and errno, as fcntl. For F_GETPATH that is EBADF where the descriptor is not open or not of a file in
// the file system, ENOENT where the file has no name any more, ENAMETOOLONG where its path does not fit.
int fileControl(int descriptor, int command, void* buffer);

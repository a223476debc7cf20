// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/FileControl.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int failWith(int systemErrno) {
    errno = systemErrno;
    return -1;
}

int getPath(int descriptor, char* buffer) {
    if (!buffer) return failWith(EFAULT);
    struct stat info {};
    if (fstat(descriptor, &info) != 0) return -1;
    const std::string entry = "/proc/self/fd/" + std::to_string(descriptor);
    char path[kPathBufferSize];
    const ssize_t length = readlink(entry.c_str(), path, sizeof path);
    if (length < 0) return -1;
    if (path[0] != '/') return failWith(EBADF); // such as "pipe:[4711]"
    if (size_t(length) >= sizeof path) return failWith(ENAMETOOLONG);
    path[length] = '\0';
    // The name may be gone, though the file has others: the kernel then adds to it what no path should have.
    struct stat named {};
    if (stat(path, &named) != 0 || named.st_dev != info.st_dev || named.st_ino != info.st_ino)
        return failWith(ENOENT);
    memcpy(buffer, path, size_t(length) + 1);
    return 0;
}

} // namespace

int fileControl(int descriptor, int command, void* buffer) {
    return command == F_GETPATH ? getPath(descriptor, static_cast<char*>(buffer))
                                : fcntl(descriptor, command, buffer);
}

// SPDX-License-Identifier: Apache-2.0
//
// An open file, closed when its owner goes.
#pragma once

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

class FileDescriptor {
public:
    FileDescriptor() = default;
    // Takes over a descriptor; a negative one is none.
    explicit FileDescriptor(int fd) : fd_(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~FileDescriptor() {
        if (fd_ >= 0) close(fd_);
    }

    explicit operator bool() const { return fd_ >= 0; }
    int get() const { return fd_; }

private:
    int fd_ = -1;
};

// None, and errno, when it cannot be opened. Never waits: what was a file when it was looked at may be a pipe
// by now.
inline FileDescriptor openForReading(const std::string& path) {
    return FileDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
}

// Writes all of it, in as many pieces as the system wants, and waits for room where somebody made the other
// end not block. 0 or the system's error.
inline int writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0 && errno == EAGAIN) {
            pollfd room{fd, POLLOUT, 0};
            poll(&room, 1, -1);
            continue;
        }
        if (written < 0) return errno;
        bytes.remove_prefix(size_t(written));
    }
    return 0;
}

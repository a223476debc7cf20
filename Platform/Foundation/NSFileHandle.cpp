// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSFileHandle.h"

#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/StringFormat.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

[[noreturn]] void raiseFor(const char* method, int systemErrno) {
    NSException(NSFileHandleOperationException,
                stringWithFormat("*** -[NSConcreteFileHandle %s]: %@", method,
                                 platformErrnoSentence(platformErrno(systemErrno))))
        .raise();
}

} // namespace

void NSFileHandle::reserveStandardOutput() {
    const int own = fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    if (own < 0) return; // closed already, or no descriptor to be had: then it is used as it is
    fileHandleWithStandardOutput().fd_ = own;
    dup2(STDERR_FILENO, STDOUT_FILENO);
}

NSFileHandle& NSFileHandle::fileHandleWithStandardOutput() {
    static NSFileHandle handle(STDOUT_FILENO);
    return handle;
}

void NSFileHandle::writeData(const NSData& data) {
    if (fd_ < 0) raiseFor("writeData:", EBADF);
    std::string_view bytes = data.bytes();
    while (!bytes.empty()) {
        ssize_t written = write(fd_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0 && errno == EAGAIN) {
            pollfd ready{fd_, POLLOUT,
                         0}; // somebody made the other end not block: wait for room all the same
            poll(&ready, 1, -1);
            continue;
        }
        if (written < 0) raiseFor("writeData:", errno);
        bytes.remove_prefix(size_t(written));
    }
}

void NSFileHandle::closeFile() {
    if (fd_ < 0) raiseFor("closeFile", EBADF);
    close(fd_);
    fd_ = -1;
}

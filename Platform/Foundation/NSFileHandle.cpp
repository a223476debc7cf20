// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSFileHandle.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/StringFormat.h"

#include <cerrno>
#include <fcntl.h>
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
    if (int error = writeAll(fd_, data.bytes())) raiseFor("writeData:", error);
}

void NSFileHandle::closeFile() {
    if (fd_ < 0) raiseFor("closeFile", EBADF);
    close(fd_);
    fd_ = -1;
}

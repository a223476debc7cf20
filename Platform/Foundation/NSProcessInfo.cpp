// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSProcessInfo.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSPathUtilities.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>

namespace {

// The arguments from the kernel, so that the library needs nothing of its program's main.
std::string commandLineBytes() {
    FileDescriptor fd(open("/proc/self/cmdline", O_RDONLY | O_CLOEXEC));
    std::string bytes;
    char piece[4096];
    for (;;) {
        ssize_t count = fd ? read(fd.get(), piece, sizeof piece) : 0;
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return bytes;
        bytes.append(piece, size_t(count));
    }
}

} // namespace

NSProcessInfo& NSProcessInfo::processInfo() {
    static NSProcessInfo info;
    return info;
}

const std::vector<NSString>& NSProcessInfo::arguments() {
    if (!arguments_.empty()) return arguments_;
    std::string bytes = commandLineBytes();
    for (size_t at = 0; at < bytes.size();) {
        size_t end = std::min(bytes.find('\0', at), bytes.size());
        arguments_.push_back(
            stringWithFileSystemRepresentation(std::string_view(bytes).substr(at, end - at)));
        at = end + 1;
    }
    return arguments_;
}

NSString NSProcessInfo::environmentValue(const char* name) const {
    const char* value = getenv(name);
    return value ? stringWithFileSystemRepresentation(value) : nullptr;
}

NSString NSProcessInfo::processName() const { return NSString::fromUTF8(program_invocation_short_name); }

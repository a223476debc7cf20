// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ProcessTable.h"

#include "Platform/Foundation/FileDescriptor.h"

#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string>

namespace {

constexpr size_t kKernelNameLength = 15; // what the kernel keeps of a name
constexpr size_t kNameLength = 16;       // what the platform keeps

std::string contentsOf(const std::string& file) {
    FileDescriptor fd(open(file.c_str(), O_RDONLY | O_CLOEXEC));
    char bytes[4096]; // the tables' files are smaller
    ssize_t count = fd ? read(fd.get(), bytes, sizeof bytes) : 0;
    return std::string(bytes, count > 0 ? size_t(count) : 0);
}

bool belongsTo(const std::string& process, uid_t user) {
    std::string status = contentsOf(process + "/status");
    size_t line = status.find("\nUid:");
    return line != std::string::npos && strtoul(status.c_str() + line + 5, nullptr, 10) == user;
}

// The name that the kernel gives, completed from the executable's where the kernel's is full.
std::string commandName(const std::string& process) {
    std::string name = contentsOf(process + "/comm");
    if (!name.empty() && name.back() == '\n') name.pop_back();
    if (name.size() < kKernelNameLength) return name;
    char target[PATH_MAX];
    ssize_t length = readlink((process + "/exe").c_str(), target, sizeof target);
    std::string executable(target, length > 0 ? size_t(length) : 0);
    executable.erase(0, executable.rfind('/') + 1);
    return executable.compare(0, name.size(), name) == 0 ? executable.substr(0, kNameLength) : name;
}

} // namespace

bool findProcessOfUser(uid_t user, std::string_view name, bool& found) {
    std::unique_ptr<DIR, int (*)(DIR*)> table(opendir("/proc"), closedir);
    found = false;
    if (!table) return false;
    while (const dirent* entry = readdir(table.get())) {
        if (entry->d_name[0] < '0' || entry->d_name[0] > '9') continue;
        std::string process = std::string("/proc/") + entry->d_name;
        if (commandName(process) == name && belongsTo(process, user)) {
            found = true;
            break;
        }
    }
    return true;
}

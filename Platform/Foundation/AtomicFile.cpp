// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/AtomicFile.h"

#include "Platform/Foundation/FileDescriptor.h"

#include <cerrno>
#include <cinttypes>
#include <climits>
#include <cstdio>
#include <sys/random.h>
#include <sys/stat.h>

namespace {

// Sets `target` to the file that a path's links lead to, which may not exist yet. 0 or the system's error.
int followLinks(const std::string& path, std::string& target) {
    constexpr int kMostLinks = 40; // as many as the kernel follows
    target = path;
    char link[PATH_MAX];
    for (int links = 0; links <= kMostLinks; ++links) {
        const ssize_t length = readlink(target.c_str(), link, sizeof link);
        if (length <= 0) return 0;
        std::string next(link, size_t(length));
        const size_t slash = target.rfind('/');
        if (next[0] != '/' && slash != std::string::npos) next.insert(0, target, 0, slash + 1);
        target = next;
    }
    return ELOOP;
}

// The links of open files, in /proc, are more than their text, which need not be the path of anything.
bool isSameFile(const std::string& path, const struct stat& file) {
    struct stat other {};
    return stat(path.c_str(), &other) == 0 && other.st_dev == file.st_dev && other.st_ino == file.st_ino;
}

// The path with its slash, or nothing for the current folder.
std::string folderOf(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// A name that no file has: 64 random bits behind the name's beginning.
std::string temporaryNameBeside(const std::string& target) {
    uint64_t bits = 0;
    if (getrandom(&bits, sizeof bits, 0) != sizeof bits) bits = uint64_t(getpid());
    char name[32];
    snprintf(name, sizeof name, ".texttool-%016" PRIx64, bits);
    return folderOf(target) + name;
}

// With these permissions, or those that the process's mask leaves. They are given at once: a sandboxed
// process may not change them any more.
int makeTemporary(const char* name, std::optional<mode_t> mode) {
    const mode_t mask = mode ? umask(0) : 0;
    const int file = open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode.value_or(0666));
    const int error = errno;
    if (mode) umask(mask);
    errno = error;
    return file;
}

} // namespace

AtomicFile::AtomicFile(const std::string& path) : path_(path) {
    struct stat info {};
    const bool exists = stat(path.c_str(), &info) == 0;
    // A link that the system does not follow is not followed here either.
    if (!exists && errno != ENOENT) error_ = errno;
    if (error_ != 0) return;
    if (exists && S_ISDIR(info.st_mode)) error_ = EISDIR;
    if (exists && !S_ISREG(info.st_mode)) return;
    std::string target;
    error_ = followLinks(path, target);
    if (error_ != 0 || (exists && !isSameFile(target, info))) return;
    path_ = target;
    temporary_ = temporaryNameBeside(target);
    if (exists) mode_ = info.st_mode & 0777;
}

std::string AtomicFile::place() const {
    if (temporary_.empty()) return path_;
    const std::string folder = folderOf(path_);
    return folder.empty() ? "." : folder;
}

int AtomicFile::write(std::string_view bytes) const {
    if (error_ != 0) return error_;
    if (temporary_.empty()) {
        const FileDescriptor file(open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
        return file ? writeAll(file.get(), bytes) : errno;
    }
    const FileDescriptor file(makeTemporary(temporary_.c_str(), mode_));
    if (!file) return errno;
    int error = writeAll(file.get(), bytes);
    if (error == 0 && rename(temporary_.c_str(), path_.c_str()) != 0) error = errno;
    if (error != 0) unlink(temporary_.c_str());
    return error;
}

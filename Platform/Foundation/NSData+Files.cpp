// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileErrors.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLPathUtilities.h"

#include <cerrno>
#include <cinttypes>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <optional>
#include <stdexcept>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Why a URL has no path for the file system.
NSError URLError(const NSURL& url, int64_t otherScheme, int64_t invalidName) {
    NSMutableDictionary info;
    if (url) info.setObject(url, NSString(NSURLErrorKey));
    return NSError(NSCocoaErrorDomain, url.isFileURL() ? invalidName : otherScheme, std::move(info).copy());
}

// Reads to the end, wherever the size that the system gave may lie. 0 or the system's error.
int readAll(int fd, size_t expected, std::string& bytes) {
    constexpr size_t kMinimumStep = 4096;
    bytes.resize(expected + 1); // one more, so that the end is seen without another round
    size_t length = 0;
    for (;;) {
        ssize_t count = read(fd, bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        if (count == 0) break;
        length += size_t(count);
        if (length == bytes.size()) bytes.resize(length + std::max(length / 2, kMinimumStep));
    }
    bytes.resize(length);
    return 0;
}

// A file may say that it is larger than any memory.
int readAllIfMemoryAllows(int fd, size_t expected, std::string& bytes) {
    try {
        return readAll(fd, expected, bytes);
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    } catch (const std::length_error&) {
        return ENOMEM;
    }
}

int writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written = write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes.remove_prefix(size_t(written));
    }
    return 0;
}

// Sets `target` to the file that a path's links lead to, which may not exist yet. 0 or the system's error.
int followLinks(const std::string& path, std::string& target) {
    constexpr int kMostLinks = 40; // as many as the kernel follows
    target = path;
    char link[PATH_MAX];
    for (int links = 0; links <= kMostLinks; ++links) {
        ssize_t length = readlink(target.c_str(), link, sizeof link);
        if (length <= 0) return 0;
        std::string next(link, size_t(length));
        size_t slash = target.rfind('/');
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

// A name that no file has: 64 random bits behind the name's beginning.
std::string temporaryNameBeside(const std::string& target) {
    uint64_t bits = 0;
    if (getrandom(&bits, sizeof bits, 0) != sizeof bits) bits = uint64_t(getpid());
    char name[32];
    snprintf(name, sizeof name, ".texttool-%016" PRIx64, bits);
    return target.substr(0, target.rfind('/') + 1) + name;
}

// A temporary file beside its target, gone again unless it was renamed to it. A new file has the permissions
// that the process's mask leaves, one that takes another's place has the other's.
class TemporaryFile {
public:
    TemporaryFile(const std::string& target, std::optional<mode_t> mode)
        : target_(target), name_(temporaryNameBeside(target)), mode_(mode) {
        fd_ = FileDescriptor(
            open(name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode ? *mode & 0600 : 0666));
        error_ = fd_ ? 0 : errno;
    }
    ~TemporaryFile() {
        if (fd_ && !renamed_) unlink(name_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    // 0 or the system's error.
    int becomeTarget(std::string_view bytes) {
        if (error_) return error_;
        if (int error = writeAll(fd_.get(), bytes)) return error;
        if (mode_ && fchmod(fd_.get(), *mode_) != 0) return errno;
        if (rename(name_.c_str(), target_.c_str()) != 0) return errno;
        renamed_ = true;
        return 0;
    }

private:
    std::string target_, name_;
    std::optional<mode_t> mode_;
    FileDescriptor fd_;
    int error_ = 0;
    bool renamed_ = false;
};

int writeDirectly(const std::string& path, std::string_view bytes, bool mayReplace) {
    int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (mayReplace ? O_TRUNC : O_EXCL);
    FileDescriptor fd(open(path.c_str(), flags, 0666));
    return fd ? writeAll(fd.get(), bytes) : errno;
}

int writeAtomically(const std::string& path, std::string_view bytes) {
    struct stat info {};
    bool exists = stat(path.c_str(), &info) == 0;
    if (exists && S_ISDIR(info.st_mode)) return EISDIR;
    // A pipe or a device is not a file that could be exchanged for another.
    if (exists && !S_ISREG(info.st_mode)) return writeDirectly(path, bytes, true);
    std::string target;
    if (int error = followLinks(path, target)) return error;
    if (exists && !isSameFile(target, info)) return writeDirectly(path, bytes, true);
    std::optional<mode_t> mode;
    if (exists) mode = info.st_mode & 07777;
    return TemporaryFile(target, mode).becomeTarget(bytes);
}

} // namespace

NSData NSData::dataWithContentsOfFile(const NSString& path, unsigned options, NSError* error) {
    const FileDescriptor fd = openForReading(fileSystemRepresentation(path));
    struct stat info {};
    if (!fd || fstat(fd.get(), &info) != 0) {
        fail(error, fileReadError(path, errno));
        return nullptr;
    }
    if (!S_ISREG(info.st_mode)) {
        fail(error, fileReadError(path, S_ISDIR(info.st_mode) ? EISDIR : EINVAL));
        return nullptr;
    }
    std::string bytes;
    if (int failure = readAllIfMemoryAllows(fd.get(), size_t(info.st_size), bytes)) {
        fail(error, fileReadError(path, failure));
        return nullptr;
    }
    if (options & NSDataReadingUncached) posix_fadvise(fd.get(), 0, 0, POSIX_FADV_DONTNEED);
    return NSData(std::move(bytes));
}

bool NSData::writeToFile(const NSString& path, unsigned options, NSError* error) const {
    std::string file = fileSystemRepresentation(path);
    bool mayReplace = !(options & NSDataWritingWithoutOverwriting);
    bool atomic = (options & NSDataWritingAtomic) && mayReplace;
    int failure = atomic ? writeAtomically(file, bytes()) : writeDirectly(file, bytes(), mayReplace);
    return failure == 0 || fail(error, fileWriteError(path, failure));
}

NSData NSData::dataWithContentsOfURL(const NSURL& url, unsigned options, NSError* error) {
    if (fileSystemRepresentation(url)) return dataWithContentsOfFile(url.path(), options, error);
    fail(error, URLError(url, NSFileReadUnsupportedSchemeError, NSFileReadInvalidFileNameError));
    return nullptr;
}

bool NSData::writeToURL(const NSURL& url, unsigned options, NSError* error) const {
    if (fileSystemRepresentation(url)) return writeToFile(url.path(), options, error);
    return fail(error, URLError(url, NSFileWriteUnsupportedSchemeError, NSFileWriteInvalidFileNameError));
}

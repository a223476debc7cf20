// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/AtomicFile.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileErrors.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLPathUtilities.h"

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <stdexcept>
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

int writeDirectly(const std::string& path, std::string_view bytes, bool mayReplace) {
    int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (mayReplace ? O_TRUNC : O_EXCL);
    FileDescriptor fd(open(path.c_str(), flags, 0666));
    return fd ? writeAll(fd.get(), bytes) : errno;
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
    int failure = atomic ? AtomicFile(file).write(bytes()) : writeDirectly(file, bytes(), mayReplace);
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

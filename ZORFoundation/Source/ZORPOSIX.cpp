// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORPOSIX.h"

#include "Platform/Foundation/FileControl.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/UserDatabase.h"
#include "ZORFoundation/Source/NSString+ZORCreation.h"
#include "ZORFoundation/Source/ZORFailure.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

bool ZORPOSIX::checkURL(const NSURL& url, mode_t mode, NSError* error) {
    if (S_ISREG(mode)) return true;
    return reportFailure(error, {"+[ZORPOSIX checkURL:modeIsReg:error:]", 36}, [&] {
        const NSError corrupt(NSCocoaErrorDomain, NSFileReadCorruptFileError);
        const PermissionInformation operation = permissionInformation();
        return operation ? operation(url, corrupt) : corrupt;
    });
}

bool ZORPOSIX::chmodPath(const char* path, uint16_t mode, NSError* error) {
    constexpr const char* method = "+[ZORPOSIX chmodPath:mode:error:]";
    if (!path) return reportMissing(error, u"path", {method, 40});
    if (chmod(path, mode) == 0) return true;
    const int code = platformErrno(errno);
    return reportFailure(error, {method, 44}, [&] {
        return errorForFunctionCodePathFailingObject(u"chmod", code, path, stringWithFormat("%o", mode));
    });
}

bool ZORPOSIX::closeDescriptor(int descriptor, NSError* error) {
    if (close(descriptor) == 0) return true;
    const int code = platformErrno(errno);
    return reportFailure(error, {"+[ZORPOSIX closeDescriptor:error:]", 50},
                         [&] { return errorForFunctionCodeDescriptor(u"close", code, descriptor); });
}

bool ZORPOSIX::openPath(const char* path, int oflag, int* fd, NSError* error) {
    constexpr const char* method = "+[ZORPOSIX openPath:oflag:fd:error:]";
    if (!path) return reportMissing(error, u"path", {method, 57});
    if (!fd) return reportMissing(error, u"fd", {method, 58});
    *fd = open(path, oflag, 0); // without a mode of its own, the call would take one from the stack
    if (*fd != -1) return true;
    const int code = platformErrno(errno);
    // The name of another function: callers know this failure by it.
    return reportFailure(error, {method, 62}, [&] { return errorForFunctionCodePath(u"stat", code, path); });
}

bool ZORPOSIX::fcntlDescriptor(int descriptor, int command, int value, NSError* error) {
    if (fcntl(descriptor, command, value) != -1) return true;
    const int code = platformErrno(errno);
    return reportFailure(error, {"+[ZORPOSIX fcntlDescriptor:command:value:error:]", 71},
                         [&] { return errorForFunctionCodeDescriptor(u"fcntl", code, descriptor); });
}

bool ZORPOSIX::fcntlDescriptor(int descriptor, int command, void* buffer, NSError* error) {
    if (fileControl(descriptor, command, buffer) != -1) return true;
    const int code = platformErrno(errno);
    return reportFailure(error, {"+[ZORPOSIX fcntlDescriptor:command:buffer:error:]", 80},
                         [&] { return errorForFunctionCodeDescriptor(u"fcntl", code, descriptor); });
}

NSString ZORPOSIX::fcntlPathFromDescriptor(int descriptor, NSError* error) {
    char path[kPathBufferSize];
    if (fileControl(descriptor, F_GETPATH, path) != -1) return zorStringWithFileSystemRepresentation(path);
    const int code = platformErrno(errno);
    reportFailure(error, {"+[ZORPOSIX fcntlPathFromDescriptor:error:]", 87}, [&] {
        return errorForFunctionCodeFailingObject(u"fcntl", code, NSNumber::withInt(descriptor));
    });
    return nullptr;
}

NSString ZORPOSIX::getpwuidNameFromUID(uid_t uid, NSError* error) {
    int failure = 0;
    if (const auto user = userWithID(uid, &failure)) return NSString::fromUTF8(user->name);
    reportFailure(error, {"+[ZORPOSIX getpwuidNameFromUID:error:]", 94}, [&] {
        return errorForFunctionCodeFailingObject(u"getpwuid", platformErrno(failure),
                                                 NSNumber::withUnsignedInteger(uid));
    });
    return nullptr;
}

bool ZORPOSIX::statfsPath(const char* path, struct statfs* statfsbuf, NSError* error) {
    constexpr const char* method = "+[ZORPOSIX statfsPath:statfsbuf:error:]";
    if (!path) return reportMissing(error, u"path", {method, 184});
    if (!statfsbuf) return reportMissing(error, u"statfsbuf", {method, 185});
    if (statfs(path, statfsbuf) == 0) return true;
    const int code = platformErrno(errno);
    return reportFailure(error, {method, 188},
                         [&] { return errorForFunctionCodePath(u"statfs", code, path); });
}

bool ZORPOSIX::statPath(const char* path, struct stat* statbuf, NSError* error) {
    constexpr const char* method = "+[ZORPOSIX statPath:statbuf:error:]";
    if (!path) return reportMissing(error, u"path", {method, 194});
    if (!statbuf) return reportMissing(error, u"statbuf", {method, 195});
    if (stat(path, statbuf) == 0) return true;
    const int code = platformErrno(errno);
    return reportFailure(error, {method, 198}, [&] { return errorForFunctionCodePath(u"stat", code, path); });
}

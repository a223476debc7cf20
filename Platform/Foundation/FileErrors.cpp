// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/FileErrors.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"

#include <cerrno>

namespace {

NSError fileError(int64_t cocoaCode, const NSString& path, int systemErrno) {
    return NSError(NSCocoaErrorDomain, cocoaCode,
                   {{NSString(NSFilePathErrorKey), path},
                    {NSString(NSUnderlyingErrorKey), NSError::posix(systemErrno)}});
}

NSError missingFolderError(const NSString& path, int systemErrno) {
    NSString folder = lastPathComponent(stringByDeletingLastPathComponent(path));
    NSError error = fileError(NSFileNoSuchFileError, path, systemErrno);
    if (folder.isEmpty()) return error;
    NSMutableDictionary info(error.userInfo());
    info.setObject(stringWithFormat("The folder “%@” doesn’t exist.", folder),
                   NSString(NSLocalizedDescriptionKey));
    info.setObject(NSString(u"The folder doesn’t exist."), NSString(NSLocalizedFailureReasonErrorKey));
    return NSError(error.domain(), error.code(), std::move(info).copy());
}

int64_t fileWriteErrorCode(int systemErrno) {
    switch (systemErrno) {
    case EACCES:
    case EPERM: return NSFileWriteNoPermissionError;
    case EEXIST: return NSFileWriteFileExistsError;
    case ENAMETOOLONG: return NSFileWriteInvalidFileNameError;
    case ENOSPC:
    case EDQUOT: return NSFileWriteOutOfSpaceError;
    case EROFS: return NSFileWriteVolumeReadOnlyError;
    default: return NSFileWriteUnknownError;
    }
}

} // namespace

int64_t fileReadErrorCode(int systemErrno) {
    switch (systemErrno) {
    case ENOENT: return NSFileReadNoSuchFileError;
    case EACCES:
    case EPERM: return NSFileReadNoPermissionError;
    case ENAMETOOLONG: return NSFileReadInvalidFileNameError;
    case EFBIG: return NSFileReadTooLargeError;
    default: return NSFileReadUnknownError;
    }
}

NSError fileReadError(const NSString& path, int systemErrno) {
    return fileError(fileReadErrorCode(systemErrno), path, systemErrno);
}

NSError fileWriteError(const NSString& path, int systemErrno) {
    return systemErrno == ENOENT ? missingFolderError(path, systemErrno)
                                 : fileError(fileWriteErrorCode(systemErrno), path, systemErrno);
}

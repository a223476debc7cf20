// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLResourceValues.h"

#include "Platform/Foundation/FileErrors.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSFileManager.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLPathUtilities.h"

#include <cerrno>
#include <sys/stat.h>

namespace {

struct Item {
    NSString path;
    struct stat info;
};

NSObject name(const Item& item) { return lastPathComponent(item.path); }
NSObject localizedName(const Item& item) { return displayNameAtPath(item.path); }
NSObject isRegularFile(const Item& item) { return NSNumber::withBool(S_ISREG(item.info.st_mode)); }
NSObject isDirectory(const Item& item) { return NSNumber::withBool(S_ISDIR(item.info.st_mode)); }
NSObject isSymbolicLink(const Item& item) { return NSNumber::withBool(S_ISLNK(item.info.st_mode)); }
NSObject fileSize(const Item& item) {
    return S_ISREG(item.info.st_mode) ? NSNumber::withInteger(item.info.st_size) : NSNumber();
}
NSObject modificationDate(const Item& item) {
    const timespec& time = item.info.st_mtim;
    return NSDate(double(time.tv_sec) - NSTimeIntervalSince1970 + double(time.tv_nsec) / 1e9);
}

constexpr struct {
    const char16_t* key;
    NSObject (*value)(const Item&);
} kResources[] = {{NSURLNameKey, name},
                  {NSURLLocalizedNameKey, localizedName},
                  {NSURLIsRegularFileKey, isRegularFile},
                  {NSURLIsDirectoryKey, isDirectory},
                  {NSURLIsSymbolicLinkKey, isSymbolicLink},
                  {NSURLFileSizeKey, fileSize},
                  {NSURLContentModificationDateKey, modificationDate}};

NSError errorOf(const NSURL& url, int64_t code, const NSError& underlying = NSError()) {
    NSMutableDictionary info;
    if (url) info.setObject(url, NSString(NSURLErrorKey));
    if (underlying) info.setObject(underlying, NSString(NSUnderlyingErrorKey));
    return NSError(NSCocoaErrorDomain, code, std::move(info).copy());
}

} // namespace

bool getResourceValue(const NSURL& url, NSObject& value, const NSString& key, NSError* error) {
    const std::optional<std::string> file = fileSystemRepresentation(url);
    if (!file) {
        return fail(error, errorOf(url, url.isFileURL() ? NSFileReadInvalidFileNameError
                                                        : NSFileReadUnsupportedSchemeError));
    }
    Item item{stringWithFileSystemRepresentation(*file), {}};
    if (lstat(file->c_str(), &item.info) != 0) {
        const int failure = errno;
        return fail(error, errorOf(url, fileReadErrorCode(failure), NSError::posix(failure)));
    }
    value = nullptr;
    for (const auto& resource : kResources) {
        if (key.isEqualToString(resource.key)) value = resource.value(item);
    }
    return true;
}

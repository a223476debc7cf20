// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"

#include "Platform/CoreServices/LSInfo.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLPathUtilities.h"
#include "Platform/Foundation/NSURLResourceValues.h"
#include "Platform/Foundation/UserDatabase.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORBasics.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kFile = "ZORFoundation/Source/NSURL+ZORFileBasics";

bool statURL(const NSURL& url, struct stat& info) {
    const std::optional<std::string> path = zorFileSystemRepresentation(url);
    return path && stat(path->c_str(), &info) == 0;
}

bool hasItemFlag(const NSURL& url, uint32_t flag) {
    LSItemInfoRecord info;
    return LSCopyItemInfoForURL(url, kLSRequestBasicFlagsOnly, &info) == noErr && (info.flags & flag);
}

} // namespace

bool zorPathExists(const NSURL& url) {
    struct stat info {};
    return statURL(url, info);
}

bool zorFileExists(const NSURL& url) {
    struct stat info {};
    return statURL(url, info) && S_ISREG(info.st_mode);
}

bool zorDirectoryExists(const NSURL& url) {
    struct stat info {};
    return statURL(url, info) && S_ISDIR(info.st_mode);
}

bool zorSymbolicLinkExists(const NSURL& url) {
    NSObject isLink;
    return getResourceValue(url, isLink, NSURLIsSymbolicLinkKey, nullptr) && as<NSNumber>(isLink).boolValue();
}

bool zorPackageExists(const NSURL& url) { return hasItemFlag(url, kLSItemInfoIsPackage); }

bool zorApplicationExists(const NSURL& url) { return hasItemFlag(url, kLSItemInfoIsApplication); }

bool zorVolumeExists(const NSURL& url) {
    if (hasItemFlag(url, kLSItemInfoIsVolume)) return true;
    const NSURL parent = zorParent(url);
    return zorName(parent).isEqualToString(u"Volumes") && zorName(zorParent(parent)).isEqualToString(u"/");
}

NSURL zorChild(const NSURL& url, const NSString& name) {
    if (!name) {
        zorStopAfterReport({kFile, __LINE__, {ZORReceiver::Kind::instance}, "zorChild:"},
                           "-[NSURL(ZORFileBasics) zorChild:]", "name");
    }
    return URLByAppendingPathComponent(url, name);
}

NSURL zorParent(const NSURL& url) { return URLByDeletingLastPathComponent(url); }

NSString zorName(const NSURL& url) { return lastPathComponent(url); }

NSString zorBasename(const NSURL& url) { return zorName(zorBasenameURL(url)); }

NSURL zorBasenameURL(const NSURL& url) { return URLByDeletingPathExtension(url); }

NSString zorPathExtension(const NSURL& url) { return pathExtension(url); }

NSURL zorWithExtension(const NSURL& url, const NSString& extension) {
    return URLByAppendingPathExtension(url, extension);
}

NSURL zorChangeToExtension(const NSURL& url, const NSString& extension) {
    return zorWithExtension(zorBasenameURL(url), extension);
}

bool zorHasExtension(const NSURL& url, const NSString& extension) {
    return zorCaseInsensitiveIsEqual(zorPathExtension(url), extension);
}

bool zorContainsFileURL(const NSURL& url, const NSURL& other) {
    return zorPathContainsPath(zorAbsolutePath(url), zorAbsolutePath(other));
}

bool zorIsEqualToFileURL(const NSURL& url, const NSURL& other) {
    if (!url || !other) return false;
    if (url == other) return true;
    if (!url.isFileURL() || !other.isFileURL() || !zorName(url).isEqualToString(zorName(other))) return false;
    return url.path().isEqualToString(other.path()) ||
           zorAbsolutePath(url).isEqualToString(zorAbsolutePath(other));
}

std::optional<std::string> zorFileSystemRepresentation(const NSURL& url, double foundationVersion) {
    if (NSProcessInfoZOR::zorIsMavericksOrBetter(foundationVersion)) return fileSystemRepresentation(url);
    const NSString path = url.path();
    return path ? std::optional(fileSystemRepresentation(path)) : std::nullopt;
}

bool zorGetFileSystemRepresentation(const NSURL& url, char* buffer, size_t maxLength) {
    return CFURLGetFileSystemRepresentation(url, buffer, maxLength);
}

NSURL NSURLZORFileBasics::zorURLWithFileSystemRepresentation(const char* path) {
    ZORPrecondition(path, kFile, {ZORReceiver::Kind::classObject}, "zorURLWithFileSystemRepresentation:");
    return NSURL::fileURLWithFileSystemRepresentation(path, false);
}

NSURL NSURLZORFileBasics::zorRealHomeDirectoryURL() {
    const std::optional<UserEntry> user = userWithID(getuid());
    return user ? NSURL::fileURLWithFileSystemRepresentation(user->directory, true) : NSURL();
}

NSString zorAbsolutePath(const NSURL& url) { return URLByStandardizingPath(url).path(); }

NSURL zorStandardizedFileURL(const NSURL& url) { return URLByStandardizingPath(url); }

NSObject zorResourceValueForKey(const NSURL& url, const NSString& key, NSError* error) {
    NSObject value;
    if (!getResourceValue(url, value, key, error)) return {};
    if (!value && error) {
        *error = zorErrorByAddingStackFrame(zorErrorWithUnsupportedKey(key, url),
                                            "-[NSURL(ZORFileBasics) zorResourceValueForKey:error:]", 296);
    }
    return value;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/CoreServices/LSInfo.h"

#include "Platform/CoreServices/Volumes.h"
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLPathUtilities.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string>
#include <sys/stat.h>

namespace {

constexpr std::u16string_view kPackageExtensions[] = {
    u"app",     u"appex",      u"bundle",    u"component",   u"dictionary", u"graffle", u"key",
    u"kext",    u"mdimporter", u"mpkg",      u"numbers",     u"osax",       u"pages",   u"photoslibrary",
    u"pkg",     u"plugin",     u"prefpane",  u"qlgenerator", u"rtfd",       u"saver",   u"scptd",
    u"service", u"wdgt",       u"xcodeproj", u"xpc"};

bool hasContents(const std::string& directory) {
    struct stat info {};
    return lstat((directory + "/Contents").c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

uint32_t flagsOfDirectory(const std::string& path, std::u16string_view extension) {
    uint32_t flags = kLSItemInfoIsContainer;
    if (isVolume(path)) return flags | kLSItemInfoIsVolume;
    const bool isPackage = std::find(std::begin(kPackageExtensions), std::end(kPackageExtensions),
                                     extension) != std::end(kPackageExtensions);
    if (isPackage || hasContents(path)) flags |= kLSItemInfoIsPackage;
    if (extension == u"app") flags |= kLSItemInfoIsApplication;
    return flags;
}

uint32_t flagsOf(const std::string& path, mode_t mode) {
    const std::u16string extension = lowered(pathExtension(stringWithFileSystemRepresentation(path)).text());
    if (S_ISLNK(mode)) return kLSItemInfoIsSymlink | kLSItemInfoIsAliasFile;
    if (S_ISDIR(mode)) return flagsOfDirectory(path, extension);
    if (S_ISREG(mode) && (extension == u"desktop" || extension == u"appimage")) {
        return kLSItemInfoIsPlainFile | kLSItemInfoIsApplication;
    }
    return kLSItemInfoIsPlainFile;
}

OSStatus statusOf(int systemErrno) {
    switch (systemErrno) {
    case ENOENT:
    case ENOTDIR: return fnfErr;
    case EACCES: return permErr;
    default: return kLSUnknownErr;
    }
}

} // namespace

OSStatus LSCopyItemInfoForURL(const NSURL& url, uint32_t whichInfo, LSItemInfoRecord* info) {
    const std::optional<std::string> path = fileSystemRepresentation(url);
    if (!path || whichInfo != kLSRequestBasicFlagsOnly || !info) return paramErr;
    struct stat item {};
    if (lstat(path->c_str(), &item) != 0) return statusOf(errno);
    info->flags = flagsOf(*path, item.st_mode);
    return noErr;
}

// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"

#include "Platform/CoreServices/MDItem.h"
#include "Platform/Foundation/NSPathUtilities.h"

#include <sys/stat.h>

namespace {

bool statPath(const NSString& path, struct stat& info) {
    return stat(fileSystemRepresentation(path).c_str(), &info) == 0;
}

} // namespace

bool zorPathExists(const NSString& path) {
    struct stat info {};
    return statPath(path, info);
}

bool zorFileExists(const NSString& path) {
    struct stat info {};
    return statPath(path, info) && S_ISREG(info.st_mode);
}

bool zorDirectoryExists(const NSString& path) {
    struct stat info {};
    return statPath(path, info) && S_ISDIR(info.st_mode);
}

bool zorSymbolicLinkExists(const NSString& path) {
    struct stat info {};
    return lstat(fileSystemRepresentation(path).c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

NSArray zorSpotlightKeywords(const NSString& path) {
    std::vector<NSObject> keywords;
    if (!zorPathExists(path)) return NSArray(keywords);
    MDItem item = MDItem::create(path);
    NSArray found = as<NSArray>(item.copyAttribute(kMDItemKeywords));
    keywords.insert(keywords.end(), found.begin(), found.end());
    return NSArray(std::move(keywords));
}

double zorFileModificationDateInterval(const NSString& path) {
    struct stat info {};
    return statPath(path, info) ? double(info.st_mtim.tv_sec) - NSTimeIntervalSince1970 : 0.0;
}

NSDate zorFileModificationDate(const NSString& path) { return NSDate(zorFileModificationDateInterval(path)); }

NSComparisonResult zorCompareFileModificationDate(const NSString& path, const NSString& other) {
    return zorFileModificationDate(path).compare(zorFileModificationDate(other));
}

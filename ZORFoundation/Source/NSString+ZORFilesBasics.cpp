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

bool zorPathExists(const NSURL& url) { return url.isFileURL() && zorPathExists(url.path()); }

bool zorFileExists(const NSString& path) {
    struct stat info {};
    return statPath(path, info) && S_ISREG(info.st_mode);
}

bool zorFileExists(const NSURL& url) { return url.isFileURL() && zorFileExists(url.path()); }

NSArray zorSpotlightKeywords(const NSString& path) {
    std::vector<NSObject> keywords;
    if (!zorPathExists(path)) return NSArray(keywords);
    MDItem item = MDItem::create(path);
    NSArray found = as<NSArray>(item.copyAttribute(kMDItemKeywords));
    keywords.insert(keywords.end(), found.begin(), found.end());
    return NSArray(std::move(keywords));
}

NSString zorChild(const NSString& path, const NSString& name) {
    return stringByAppendingPathComponent(path, name);
}

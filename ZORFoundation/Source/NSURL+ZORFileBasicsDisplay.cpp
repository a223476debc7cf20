// SPDX-License-Identifier: Apache-2.0
#include "Platform/CoreServices/CFURL.h"
#include "Platform/Foundation/NSFileManager.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLResourceValues.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"

NSString zorDisplayPath(const NSURL& url) {
    const NSString path = zorAbsolutePath(url);
    if (!path) return nullptr;
    const NSArray shown = componentsToDisplayForPath(path);
    std::u16string joined;
    for (const NSObject& component : shown ? shown : pathComponents(path)) {
        if (!joined.empty()) joined += u" \u2023 ";
        joined += as<NSString>(component).text();
    }
    return joined;
}

NSString zorDisplayName(const NSURL& url) {
    if (!zorPathExists(url)) return zorName(url);
    NSObject name;
    getResourceValue(url, name, NSURLLocalizedNameKey, nullptr);
    return as<NSString>(name);
}

NSString zorDisplayNameWithExtension(const NSURL& url) { return zorMakeFileNameValidForCarbon(zorName(url)); }

NSString zorHFSPath(const NSURL& url) { return CFURLCopyFileSystemPath(url, kCFURLHFSPathStyle); }

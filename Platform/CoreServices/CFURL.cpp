// SPDX-License-Identifier: Apache-2.0
#include "Platform/CoreServices/CFURL.h"

#include "Platform/CoreServices/Volumes.h"
#include "Platform/Foundation/NSFileManager.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLPathUtilities.h"

#include <algorithm>

namespace {

NSString HFSPath(NSString path) {
    std::u16string out;
    for (;;) {
        const bool isRoot = path.isEqualToString(u"/");
        std::u16string name = isRoot ? kRootVolumeName : lastPathComponent(path).text();
        std::replace(name.begin(), name.end(), u':', u'/');
        out.insert(0, name);
        if (isRoot || path.isEmpty() || isVolume(fileSystemRepresentation(path))) return out;
        out.insert(0, u":");
        path = stringByDeletingLastPathComponent(path);
    }
}

} // namespace

NSString CFURLCopyFileSystemPath(const NSURL& url, CFURLPathStyle style) {
    const std::optional<std::string> bytes = fileSystemRepresentation(url);
    if (!bytes) return nullptr;
    const NSString path = stringWithFileSystemRepresentation(*bytes);
    return style == kCFURLHFSPathStyle ? HFSPath(path) : path;
}

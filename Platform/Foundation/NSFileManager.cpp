// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSFileManager.h"

#include "Platform/Foundation/NSPathUtilities.h"

#include <unistd.h>

NSString displayNameAtPath(const NSString& path) {
    const NSString name = lastPathComponent(path);
    return name.isEqualToString(u"/") ? NSString(kRootVolumeName) : NSString::fromUTF8(name.utf8());
}

NSArray componentsToDisplayForPath(const NSString& path) {
    const bool isThere = path.text().find(u'\0') == std::u16string::npos &&
                         access(fileSystemRepresentation(path).c_str(), F_OK) == 0;
    return isThere ? pathComponents(path) : NSArray();
}

// SPDX-License-Identifier: Apache-2.0
//
// Paths of URLs in other styles than the system's own.
#pragma once

#include "Platform/Foundation/NSURL.h"

enum CFURLPathStyle { kCFURLPOSIXPathStyle = 0, kCFURLHFSPathStyle = 1 };

// nil for a URL that is not a file's. The HFS style is the name of the volume and the components below it,
// joined with colons; a colon in a name is shown as a slash.
NSString CFURLCopyFileSystemPath(const NSURL& url, CFURLPathStyle style);

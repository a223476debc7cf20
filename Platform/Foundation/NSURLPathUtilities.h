// SPDX-License-Identifier: Apache-2.0
//
// The path of a URL: its parts, URLs with another path, and the bytes of a file URL for the file system.
// Answers are absolute URLs. nil answers nil.
#pragma once

#include "Platform/Foundation/NSURL.h"

#include <cstddef>
#include <optional>
#include <string>

// Of the decoded path; nil for a URL without one.
NSString lastPathComponent(const NSURL& url);
NSString pathExtension(const NSURL& url);

// The component is escaped, slashes within it part more components. A file URL ends in a slash when an
// existing directory is there. An empty component adds a slash.
NSURL URLByAppendingPathComponent(const NSURL& url, const NSString& component);
// Ends in a slash; where there is no component to delete, "../" is added.
NSURL URLByDeletingLastPathComponent(const NSURL& url);
// A slash at the end stays, here and below.
NSURL URLByDeletingPathExtension(const NSURL& url);
// nil for an extension with a slash.
NSURL URLByAppendingPathExtension(const NSURL& url, const NSString& extension);
// A file URL as stringByStandardizingPath does its path; other URLs stay as they are.
NSURL URLByStandardizingPath(const NSURL& url);

// The bytes of a file URL's path, without a final NUL. None for other URLs, for an empty path, and for a path
// with NUL, which the kernel would take for its end.
std::optional<std::string> fileSystemRepresentation(const NSURL& url);

// The same into a buffer, NUL-terminated; false when it does not fit or there is none.
bool CFURLGetFileSystemRepresentation(const NSURL& url, char* buffer, size_t size);

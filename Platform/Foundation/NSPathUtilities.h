// SPDX-License-Identifier: Apache-2.0
//
// Paths as strings of components separated by "/". A path's bytes and its string name the same file both
// ways: bytes that are not UTF-8 are U+DC80 to U+DCFF in the string.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSString.h"

#include <string>
#include <string_view>

// The bytes for a system call. Raises a character-conversion exception for a path with U+0000, which the
// kernel would take for the path's end.
std::string fileSystemRepresentation(const NSString& path);

NSString stringWithFileSystemRepresentation(std::string_view bytes);

NSString lastPathComponent(const NSString& path);
NSString pathExtension(const NSString& path);
NSString stringByDeletingLastPathComponent(const NSString& path);
NSString stringByAppendingPathComponent(const NSString& path, const NSString& component);
NSString stringByDeletingPathExtension(const NSString& path);
// nil for a path without a name ("" and "/") and for what cannot be an extension: one with a slash or a
// blank, or that ends in a dot. The path as it is for an extension that is empty or nil.
NSString stringByAppendingPathExtension(const NSString& path, const NSString& extension);

// Strings; "/" stands for the root in front and for a slash at the end.
NSArray pathComponents(const NSString& path);

// The home directory for a leading "~" or "~user", single slashes, no slash at the end and no "." components.
// In an absolute path ".." is resolved too, to the real parent where a link leads elsewhere; "/.." is "/".
NSString stringByStandardizingPath(const NSString& path);

// TMPDIR of the environment, or /tmp.
NSString NSTemporaryDirectory();

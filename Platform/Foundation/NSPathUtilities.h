// SPDX-License-Identifier: Apache-2.0
//
// Paths as strings of components separated by "/". A path's bytes and its string name the same file both
// ways: bytes that are not UTF-8 are U+DC80 to U+DCFF in the string.
#pragma once

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

// TMPDIR of the environment, or /tmp.
NSString NSTemporaryDirectory();

// SPDX-License-Identifier: Apache-2.0
//
// What the file system says of a file URL, by key. Links are not followed: the values are the link's own.
#pragma once

#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSURL.h"

inline constexpr const char16_t* NSURLNameKey = u"NSURLNameKey";                     // string
inline constexpr const char16_t* NSURLLocalizedNameKey = u"NSURLLocalizedNameKey";   // string
inline constexpr const char16_t* NSURLIsRegularFileKey = u"NSURLIsRegularFileKey";   // boolean
inline constexpr const char16_t* NSURLIsDirectoryKey = u"NSURLIsDirectoryKey";       // boolean
inline constexpr const char16_t* NSURLIsSymbolicLinkKey = u"NSURLIsSymbolicLinkKey"; // boolean
inline constexpr const char16_t* NSURLFileSizeKey = u"NSURLFileSizeKey";             // number, of files
inline constexpr const char16_t* NSURLContentModificationDateKey = u"NSURLContentModificationDateKey"; // date

// Sets `value`, to nil when the item has no such value or the key is not known. False and a Cocoa error (260
// missing, 257 not permitted, 256 otherwise) over the POSIX one when the item cannot be looked at, 262 when
// the URL is not a file's, 258 when its path cannot be one.
bool getResourceValue(const NSURL& url, NSObject& value, const NSString& key, NSError* error);

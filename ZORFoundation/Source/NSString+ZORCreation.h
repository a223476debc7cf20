// SPDX-License-Identifier: Apache-2.0
//
// Strings from bytes, files and characters, and bytes from strings.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSStringEncoding.h"

class NSError;

// Keys of the errors below.
inline constexpr const char16_t* ZORInputObject = u"ZORInputObject";       // the data
inline constexpr const char16_t* ZORString = u"ZORString";                 // the text
inline constexpr const char16_t* ZORStringEncoding = u"ZORStringEncoding"; // the encoding's number

// The text of data, or nil when not all of it is text in the encoding. A byte order mark at the start of
// UTF-8 is no part of the text; ASCII is read as ISO Latin 1; an odd byte after UTF-16 is left out.
NSString zorStringWithData(const NSData& data, NSStringEncoding encoding);
// With error 500 of the library's domain, whose user information holds the data and the encoding.
NSString zorStringWithData(const NSData& data, NSStringEncoding encoding, NSError* error);
NSString zorStringWithUTF8Data(const NSData& data);

// A path from the file system's bytes; nil for null. The counted form ends at the first zero byte, too.
NSString zorStringWithFileSystemRepresentation(const char* bytes);
NSString zorStringWithFileSystemRepresentation(const char* bytes, size_t length);

// SPDX-License-Identifier: Apache-2.0
//
// Strings from bytes, files, characters and formats.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/StringFormat.h"

#include <initializer_list>
#include <string_view>

class NSError;

// Keys of the errors of decoding and encoding.
inline constexpr const char16_t* ZORInputObject = u"ZORInputObject";       // the data
inline constexpr const char16_t* ZORString = u"ZORString";                 // the text
inline constexpr const char16_t* ZORStringEncoding = u"ZORStringEncoding"; // the encoding's number

NSString zorStringWithFormat(std::string_view format, std::initializer_list<FormatArgument> arguments);

// A new UUID, such as "0D9A1F0C-6C0F-4C58-9B5B-2F2B7B3F6E11"; nil when the system gives no random bytes. The
// second form puts the prefix and a full stop before it.
NSString zorUniqueString();
NSString zorUniqueString(const NSString& prefix);

// The encoding of an IANA charset name in any case; ISO Latin 1 for nil and for names that are not known.
NSStringEncoding zorStringEncodingForMIMEEncoding(const NSString& name);

NSString zorStringWithCharacter(char16_t unit);
// nil for a number that is no code point, as the surrogates are none.
NSString zorStringWith32BitCharacter(uint32_t codePoint);

// The text of data, or nil when not all of it is text in the encoding. A byte order mark at the start of
// UTF-8 is no part of the text; ASCII is read as ISO Latin 1; an odd byte after UTF-16 is left out.
NSString zorStringWithData(const NSData& data, NSStringEncoding encoding);
// With error 500 of the library's domain, whose user information holds the data and the encoding.
NSString zorStringWithData(const NSData& data, NSStringEncoding encoding, NSError* error);
NSString zorStringWithUTF8Data(const NSData& data);

// A file's text: UTF-8, or UTF-16 with a byte order mark, or Mac OS Roman, the first that fits. nil when the
// file cannot be read.
NSString zorStringWithContentsOfFile(const NSString& path);

// A path from the file system's bytes; nil for null. The counted form ends at the first zero byte, too.
NSString zorStringWithFileSystemRepresentation(const char* bytes);
NSString zorStringWithFileSystemRepresentation(const char* bytes, size_t length);

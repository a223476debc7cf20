// SPDX-License-Identifier: Apache-2.0
//
// Strings as something else: bytes, URLs, and the query strings of URLs.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/NSURL.h"

class NSError;

// The text's bytes. nil and error 501 of the library's domain, whose user information holds the text and the
// encoding, when a character is not in the encoding. nil alone for nil.
NSData zorDataUsingEncoding(const NSString& text, NSStringEncoding encoding, NSError* error);

// The file URL of a path; nil for nil. The first asks the disk whether a directory is there, whose URL ends
// in a slash; the fast one takes the path for that of no directory.
NSURL zorFileURL(const NSString& path);
NSURL zorFastFileURL(const NSString& path);

// The text with its percent escapes replaced by their characters, but for those of the characters to be kept.
// nil when an escape is malformed or stands for bytes that are no UTF-8.
NSString zorDecodePercentEscapes(const NSString& text);
NSString zorDecodePercentEscapesKeepingEscaped(const NSString& text, const NSString& kept);

// The text with everything escaped that has a meaning in a query string, or that no URL may have. nil when
// the text has a lone surrogate.
NSString zorEncodeForQueryString(const NSString& text);

// The text with everything escaped that no URL may have, but for the characters to be kept.
NSString zorEncodeURLKeepingUnescaped(const NSString& text, const NSString& kept);

// The pairs of a query string, decoded. A piece between two "&" that is not KEY=VALUE, or cannot be decoded,
// is left out. The last of several values of a key counts. Empty when there is none.
NSDictionary zorQueryStringDictionary(const NSString& query);

// The strings of a dictionary as a query string, sorted by key without regard to case.
NSString zorQueryStringWithDictionary(const NSDictionary& values);

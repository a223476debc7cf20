// SPDX-License-Identifier: Apache-2.0
//
// What is at a path. A path with U+0000 raises a character-conversion exception.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSString.h"

// Whether anything is at the path. Links are followed, here and below: a dangling link does not exist.
bool zorPathExists(const NSString& path);
// Whether a regular file or a directory is there.
bool zorFileExists(const NSString& path);
bool zorDirectoryExists(const NSString& path);
// Whether a link is there, dangling or not.
bool zorSymbolicLinkExists(const NSString& path);

// The file's keywords, strings; empty when there are none or no file. Never nil.
NSArray zorSpotlightKeywords(const NSString& path);

// When the file's contents changed last, in whole seconds since the reference date of NSDate; 0 and the
// reference date itself for a missing file.
double zorFileModificationDateInterval(const NSString& path);
NSDate zorFileModificationDate(const NSString& path);
NSComparisonResult zorCompareFileModificationDate(const NSString& path, const NSString& other);

// SPDX-License-Identifier: Apache-2.0
//
// Extended attributes of a file as data, text or property lists. Keys are text, in UTF-8 for the file system.
// Attributes are those of the file itself, never of what a link leads to.
//
// Failures are those of ZORPOSIX, which may raise, with the key as ZORFailingKey; but a missing attribute is
// POSIX 93 with nothing else than the function's name, so that callers can tell it from a failure.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSURL.h"

// Strings in the system's order, without names that are not UTF-8; empty when there are none, nil on failure.
NSArray zorXattrKeysError(const NSURL& url, NSError* error);

NSData zorXattrDataForKey(const NSURL& url, const NSString& key, NSError* error);
// Strict UTF-8.
NSString zorXattrStringForKey(const NSURL& url, const NSString& key, NSError* error);
// In any form of property list; the root may be of any class.
NSObject zorXattrPropertyListForKey(const NSURL& url, const NSString& key, NSError* error);

bool zorSetXattrData(const NSURL& url, const NSData& value, const NSString& key, NSError* error);
// A string that has no UTF-8 is as one that is nil: the requirement "value" is not met.
bool zorSetXattrString(const NSURL& url, const NSString& value, const NSString& key, NSError* error);
// In the binary form.
bool zorSetXattrPropertyList(const NSURL& url, const NSObject& value, const NSString& key, NSError* error);
bool zorRemoveXattrForKey(const NSURL& url, const NSString& key, NSError* error);

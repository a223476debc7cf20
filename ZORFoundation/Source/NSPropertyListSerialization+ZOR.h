// SPDX-License-Identifier: Apache-2.0
//
// Property lists as data and in files. The platform's errors are amended, never replaced: with the failing
// object, the file and a stack frame a level.
//
// `options` ask for mutable containers (NSPropertyListMutabilityOptions). Values are immutable here whatever
// they say; a mutable copy is made where it is needed.
#pragma once

#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/NSURL.h"

enum NSPropertyListMutabilityOptions : unsigned {
    NSPropertyListImmutable = 0,
    NSPropertyListMutableContainers = 1,
    NSPropertyListMutableContainersAndLeaves = 2,
};

namespace NSPropertyListSerializationZOR {

// The failing object of an error is the list.
NSData zorDataFromPropertyList(const NSObject& propertyList, NSPropertyListFormat format, NSError* error);
NSData zorBinaryFrom(const NSObject& propertyList, NSError* error);
bool zorWritePropertyList(const NSObject& propertyList, const NSURL& url, NSPropertyListFormat format,
                          NSError* error);

// Of any form; `format`, which may be null, says which. The failing object of an error is at most the first
// 1024 bytes.
NSObject zorPropertyListFromData(const NSData& data, unsigned options, NSPropertyListFormat* format,
                                 NSError* error);
NSObject zorReadData(const NSData& data, NSError* error);
NSObject zorPropertyListWithContentsOfURL(const NSURL& url, unsigned options, NSPropertyListFormat* format,
                                          NSError* error);
// The same.
NSObject zorReadURL(const NSURL& url, unsigned options, NSPropertyListFormat* format, NSError* error);
NSObject zorReadURL(const NSURL& url, NSError* error);

} // namespace NSPropertyListSerializationZOR

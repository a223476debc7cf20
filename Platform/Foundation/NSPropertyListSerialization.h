// SPDX-License-Identifier: Apache-2.0
//
// Property lists: dictionaries with string keys, arrays, strings, data, dates and numbers as bytes. Written
// in the binary and the XML form, read in these and in the old-style text form.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSObject.h"

enum NSPropertyListFormat {
    NSPropertyListOpenStepFormat = 1, // old-style; cannot be written
    NSPropertyListXMLFormat_v1_0 = 100,
    NSPropertyListBinaryFormat_v1_0 = 200,
};

// nil, and a text that says why, when the list holds something that a property list cannot, or is nil.
NSData dataFromPropertyList(const NSObject& propertyList, NSPropertyListFormat format,
                            NSString* errorDescription);

// The same with an error: Cocoa 3852 for a list that cannot be written, 3851 for a form that cannot.
NSData dataWithPropertyList(const NSObject& propertyList, NSPropertyListFormat format, NSError* error);

// Tries the binary form, then XML, then old-style. nil and Cocoa 3840 with a debug description when none
// reads. The bytes may come from anyone: work and memory are bounded by their number, nesting by 512.
NSObject propertyListWithData(std::string_view bytes, NSPropertyListFormat* format, NSError* error);

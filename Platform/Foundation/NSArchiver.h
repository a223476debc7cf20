// SPDX-License-Identifier: Apache-2.0
//
// The platform's non-keyed archives ("streamtyped"): how an error goes to the host whole.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSObject.h"

class NSArchiver {
public:
    // The archive of an object, or of nil. Raises an invalid-argument exception when a value inside cannot be
    // archived (class objects, objects of classes of our own).
    static NSData archivedDataWithRootObject(const NSObject& object);

    // Whether the archiver has a form for the object, as for every class that conforms to NSCoding. What a
    // container holds is not asked. False for nil.
    static bool conformsToCoding(const NSObject& object);
};

class NSUnarchiver {
public:
    // The object of an archive, little-endian or big-endian, nil for the archive of nil. An archive that is
    // damaged, cyclic, too deep, expands beyond reason or holds a class that is not known here is nil and an
    // error (Cocoa 4864) whose debug description says what and where.
    static NSObject unarchiveObjectWithData(std::string_view bytes, NSError* error);
};

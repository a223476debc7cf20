// SPDX-License-Identifier: Apache-2.0
//
// The null object, which stands in collections where nil cannot.
#pragma once

#include "Platform/Foundation/NSObject.h"

class NSNull : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::null;

    NSNull() = default; // nil, as for every handle
    explicit NSNull(const ObjectBody* body) : NSObject(body) {}

    static NSNull null();
};

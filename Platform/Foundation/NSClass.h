// SPDX-License-Identifier: Apache-2.0
//
// A class as an object, as errors name the class that was expected; and the identifier that keyed archives
// hold in property lists.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

class NSClass : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::classObject;

    NSClass() = default;
    explicit NSClass(std::string_view name);
    explicit NSClass(const ObjectBody* body) : NSObject(body) {}

    std::string_view name() const;
};

class CFKeyedArchiverUID : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::uid;

    CFKeyedArchiverUID() = default;
    explicit CFKeyedArchiverUID(uint32_t value);
    explicit CFKeyedArchiverUID(const ObjectBody* body) : NSObject(body) {}

    uint32_t value() const;
};

// SPDX-License-Identifier: Apache-2.0
//
// An ordered collection of values, none of them nil.
#pragma once

#include "Platform/Foundation/NSObject.h"

#include <initializer_list>
#include <vector>

class NSArray : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::array;

    NSArray() = default;
    // Raises an invalid-argument exception when an element is nil.
    explicit NSArray(std::vector<NSObject> objects);
    NSArray(std::initializer_list<NSObject> objects) : NSArray(std::vector<NSObject>(objects)) {}
    explicit NSArray(const ObjectBody* body) : NSObject(body) {}

    const std::vector<NSObject>& objects() const;
    size_t count() const { return objects().size(); }
    // Raises a range exception past the end.
    NSObject objectAtIndex(size_t index) const;

    auto begin() const { return objects().begin(); }
    auto end() const { return objects().end(); }
};

// SPDX-License-Identifier: Apache-2.0
//
// Sets of UTF-16 units. Cheap to copy; the copies share one table.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <bitset>
#include <memory>

class NSCharacterSet {
public:
    // The units of a text. Characters that need two are in no set.
    static NSCharacterSet characterSetWithCharactersInString(const NSString& text);

    // `count` units from `first` on, as far as there are any.
    static NSCharacterSet characterSetWithRange(char16_t first, size_t count);

    // White space of Unicode, the zero-width space, tab, and everything that ends a line.
    static NSCharacterSet whitespaceAndNewlineCharacterSet();

    // Every other unit.
    NSCharacterSet invertedSet() const;

    bool characterIsMember(char16_t unit) const { return (*units_)[unit]; }

private:
    using Units = std::bitset<0x10000>;
    explicit NSCharacterSet(std::shared_ptr<const Units> units) : units_(std::move(units)) {}

    std::shared_ptr<const Units> units_;
};

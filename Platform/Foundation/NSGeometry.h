// SPDX-License-Identifier: Apache-2.0
//
// Points, sizes, rectangles and ranges, their texts, and the value that boxes them.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

#include <variant>

struct NSPoint {
    double x = 0, y = 0;
    friend bool operator==(const NSPoint&, const NSPoint&) = default;
};

struct NSSize {
    double width = 0, height = 0;
    friend bool operator==(const NSSize&, const NSSize&) = default;
};

struct NSRect {
    NSPoint origin;
    NSSize size;
    friend bool operator==(const NSRect&, const NSRect&) = default;
};

struct NSRange {
    uint64_t location = 0, length = 0;
    friend bool operator==(const NSRange&, const NSRange&) = default;
};

// "{1.5, 2}", "{{0, 0}, {1, 2}}", "{3, 4}": numbers with as many digits as reading them back needs.
NSString NSStringFromPoint(NSPoint point);
NSString NSStringFromSize(NSSize size);
NSString NSStringFromRect(NSRect rect);
NSString NSStringFromRange(NSRange range);

// Takes the first two numbers of the text, whatever stands between them; missing ones are 0.
NSSize NSSizeFromString(const NSString& text);

class NSValue : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::geometry;
    using Geometry = std::variant<NSPoint, NSSize, NSRect, NSRange>;

    NSValue() = default;
    explicit NSValue(const Geometry& geometry);
    explicit NSValue(const ObjectBody* body) : NSObject(body) {}

    // A zero point for nil.
    const Geometry& geometry() const;
};

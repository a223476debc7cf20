// SPDX-License-Identifier: Apache-2.0
//
// A point in time as a value: seconds since 2001-01-01 00:00:00 UTC, fractions kept.
#pragma once

#include "Platform/Foundation/CalendarDate.h"
#include "Platform/Foundation/NSObjCRuntime.h"
#include "Platform/Foundation/NSObject.h"

class NSDate : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::date;

    NSDate() = default;
    explicit NSDate(double timeIntervalSinceReferenceDate);
    explicit NSDate(const ObjectBody* body) : NSObject(body) {}

    static NSDate now();

    // 0 for nil.
    double timeIntervalSinceReferenceDate() const;

    // Ascending when this date is the earlier one.
    NSComparisonResult compare(const NSDate& other) const;
};

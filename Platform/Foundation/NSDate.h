// SPDX-License-Identifier: Apache-2.0
//
// A point in time as a value: seconds since 2001-01-01 00:00:00 UTC, fractions kept.
#pragma once

#include "Platform/Foundation/NSObject.h"

#include <cstdint>

// From the Unix epoch to the reference date.
constexpr double NSTimeIntervalSince1970 = 978307200.0;

struct CalendarDate {
    int64_t year;
    int month, day, hour, minute, second; // month and day from 1, UTC
};

// The date of a reference time, fractions of a second cut off. Times past the year ±1e8 are held there;
// not-a-number is the reference date.
CalendarDate calendarDate(double referenceTime);

// The reference time of a date in the proleptic Gregorian calendar; fields out of their ranges carry over.
double referenceTime(const CalendarDate& date);

class NSDate : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::date;

    NSDate() = default;
    explicit NSDate(double timeIntervalSinceReferenceDate);
    explicit NSDate(const ObjectBody* body) : NSObject(body) {}

    static NSDate now();

    // 0 for nil.
    double timeIntervalSinceReferenceDate() const;
};

// SPDX-License-Identifier: Apache-2.0
//
// Points in time, in seconds since the reference date (2001-01-01 00:00:00 UTC), as dates of the proleptic
// Gregorian calendar, and back.
#pragma once

#include <cstdint>
#include <string>

// From the Unix epoch to the reference date.
constexpr double NSTimeIntervalSince1970 = 978307200.0;

struct CalendarDate {
    int64_t year;
    int month, day, hour, minute, second; // month and day from 1
};

// The date in UTC of a reference time, fractions of a second cut off. Times past the year ±1e8 are held
// there; not-a-number is the reference date.
CalendarDate calendarDate(double referenceTime);

// The date in UTC of a reference time as property lists and JSON have it: "2001-01-01T00:00:00Z".
std::string dateText(double referenceTime);

// The reference time of a date in UTC; fields out of their ranges carry over.
double referenceTime(const CalendarDate& date);

// The reference time of a date in the time zone of the system, which tells by itself whether summer time
// holds.
double referenceTimeOfLocal(const CalendarDate& date);

// True when the calendar has this day; the time of day does not matter.
bool isCalendarDay(const CalendarDate& date);

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/CalendarDate.h"

#include <algorithm>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace {

constexpr int64_t kSecondsPerDay = 86400;
constexpr double kTimeLimit = 3.0e15; // about a hundred million years
constexpr int64_t kYearLimit = 100'000'000;

// Days from 2000-03-01, the first day of a 400-year cycle whose leap days come last.
int64_t daysFromCycleStart(int64_t year, int64_t month, int64_t day) {
    int64_t shifted = month - 3;
    int64_t years = year - 2000 + (shifted >= 0 ? shifted / 12 : -((11 - shifted) / 12));
    int64_t monthOfYear = ((shifted % 12) + 12) % 12;
    int64_t cycle = years >= 0 ? years / 400 : -((399 - years) / 400);
    int64_t yearOfCycle = years - cycle * 400;
    int64_t dayOfYear = (153 * monthOfYear + 2) / 5 + day - 1;
    return cycle * 146097 + yearOfCycle * 365 + yearOfCycle / 4 - yearOfCycle / 100 + dayOfYear;
}

constexpr int64_t kReferenceDay = 306; // 2001-01-01

int64_t floorDivide(int64_t a, int64_t b) { return a >= 0 ? a / b : -((b - 1 - a) / b); }

} // namespace

CalendarDate calendarDate(double referenceTime) {
    if (std::isnan(referenceTime)) referenceTime = 0;
    auto seconds = int64_t(std::floor(std::clamp(referenceTime, -kTimeLimit, kTimeLimit)));
    int64_t day = floorDivide(seconds, kSecondsPerDay);
    int64_t secondOfDay = seconds - day * kSecondsPerDay;

    int64_t days = day + kReferenceDay;
    int64_t cycle = floorDivide(days, 146097);
    int64_t dayOfCycle = days - cycle * 146097;
    int64_t yearOfCycle = (dayOfCycle - dayOfCycle / 1460 + dayOfCycle / 36524 - dayOfCycle / 146096) / 365;
    int64_t dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    int64_t shifted = (5 * dayOfYear + 2) / 153;

    CalendarDate date{};
    date.day = int(dayOfYear - (153 * shifted + 2) / 5 + 1);
    date.month = int(shifted < 10 ? shifted + 3 : shifted - 9);
    date.year = 2000 + cycle * 400 + yearOfCycle + (date.month <= 2 ? 1 : 0);
    date.hour = int(secondOfDay / 3600);
    date.minute = int(secondOfDay / 60 % 60);
    date.second = int(secondOfDay % 60);
    return date;
}

std::string dateText(double referenceTime) {
    const CalendarDate date = calendarDate(referenceTime);
    char text[64];
    snprintf(text, sizeof text, "%04" PRId64 "-%02d-%02dT%02d:%02d:%02dZ", date.year, date.month, date.day,
             date.hour, date.minute, date.second);
    return text;
}

double referenceTime(const CalendarDate& date) {
    int64_t year = std::clamp<int64_t>(date.year, -kYearLimit, kYearLimit);
    int64_t days = daysFromCycleStart(year, date.month, date.day) - kReferenceDay;
    return double(days) * double(kSecondsPerDay) + double(date.hour) * 3600 + double(date.minute) * 60 +
           double(date.second);
}

double referenceTimeOfLocal(const CalendarDate& date) {
    std::tm local{};
    local.tm_year = int(std::clamp<int64_t>(date.year, -kYearLimit, kYearLimit) - 1900);
    local.tm_mon = date.month - 1;
    local.tm_mday = date.day;
    local.tm_hour = date.hour;
    local.tm_min = date.minute;
    local.tm_sec = date.second;
    local.tm_isdst = -1;
    return double(std::mktime(&local)) - NSTimeIntervalSince1970;
}

bool isCalendarDay(const CalendarDate& date) {
    const CalendarDate carried = calendarDate(referenceTime({date.year, date.month, date.day, 0, 0, 0}));
    return carried.year == date.year && carried.month == date.month && carried.day == date.day;
}

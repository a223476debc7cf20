// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSDate.h"

#include "Platform/Foundation/StringFormat.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>

namespace {

constexpr int64_t kSecondsPerDay = 86400;
constexpr double kTimeLimit = 3.0e15; // about a hundred million years

class DateBody final : public ObjectBody {
public:
    explicit DateBody(double time) : ObjectBody(NSKind::date), time(time) {}

    std::string_view className() const override { return "NSDate"; }
    bool isEqual(const ObjectBody& other) const override {
        return time == static_cast<const DateBody&>(other).time;
    }
    size_t hash() const override { return std::hash<double>()(time); }
    std::u16string description(unsigned) const override {
        CalendarDate d = calendarDate(time);
        return stringWithFormat("%04lld-%02d-%02d %02d:%02d:%02d +0000", d.year, d.month, d.day, d.hour,
                                d.minute, d.second)
            .text();
    }

    const double time;
};

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

double referenceTime(const CalendarDate& date) {
    int64_t year = std::clamp<int64_t>(date.year, -100'000'000, 100'000'000);
    int64_t days = daysFromCycleStart(year, date.month, date.day) - kReferenceDay;
    return double(days) * double(kSecondsPerDay) + double(date.hour) * 3600 + double(date.minute) * 60 +
           double(date.second);
}

NSDate::NSDate(double timeIntervalSinceReferenceDate)
    : NSObject(new DateBody(timeIntervalSinceReferenceDate)) {}

NSDate NSDate::now() {
    const std::chrono::duration<double> sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return NSDate(sinceEpoch.count() - NSTimeIntervalSince1970);
}

double NSDate::timeIntervalSinceReferenceDate() const {
    return body() ? static_cast<const DateBody*>(body())->time : 0;
}

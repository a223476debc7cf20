// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSDate.h"

#include "Platform/Foundation/StringFormat.h"

#include <chrono>
#include <functional>

namespace {

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

} // namespace

NSDate::NSDate(double timeIntervalSinceReferenceDate)
    : NSObject(new DateBody(timeIntervalSinceReferenceDate)) {}

NSDate NSDate::now() {
    const std::chrono::duration<double> sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return NSDate(sinceEpoch.count() - NSTimeIntervalSince1970);
}

double NSDate::timeIntervalSinceReferenceDate() const {
    return body() ? static_cast<const DateBody*>(body())->time : 0;
}

NSComparisonResult NSDate::compare(const NSDate& other) const {
    const double own = timeIntervalSinceReferenceDate(), others = other.timeIntervalSinceReferenceDate();
    if (own == others) return NSOrderedSame;
    return own < others ? NSOrderedAscending : NSOrderedDescending;
}

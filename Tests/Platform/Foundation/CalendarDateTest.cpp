// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/CalendarDate.h"

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(CalendarDate, GoesBothWays) {
    for (double time :
         {0.0, -1.0, 1e9, -1e9, 86400.0 * 59, 86400.0 * 365 * 400, -86400.0 * 1000000, 3e12, -3e12}) {
        EXPECT_EQ(referenceTime(calendarDate(time)), time);
    }
    CalendarDate leap = calendarDate(referenceTime({2024, 2, 29, 12, 30, 59}));
    EXPECT_EQ(leap.month, 2);
    EXPECT_EQ(leap.day, 29);
    EXPECT_EQ(calendarDate(NAN).year, 2001);
    EXPECT_GT(calendarDate(1e300).year, 90'000'000);
    EXPECT_LT(calendarDate(-1e300).year, -90'000'000);
    EXPECT_EQ(referenceTime({2001, 13, 1, 0, 0, 0}), referenceTime({2002, 1, 1, 0, 0, 0}));
    EXPECT_EQ(referenceTime({2001, 0, 1, 0, 0, 0}), referenceTime({2000, 12, 1, 0, 0, 0}));
}

TEST(CalendarDate, IsTextInTheFormOfPropertyLists) {
    EXPECT_EQ(dateText(0), "2001-01-01T00:00:00Z");
    EXPECT_EQ(dateText(-0.5), "2000-12-31T23:59:59Z");
    EXPECT_EQ(dateText(referenceTime({12345, 6, 7, 8, 9, 10})), "12345-06-07T08:09:10Z");
    EXPECT_EQ(dateText(referenceTime({476, 9, 4, 0, 0, 0})), "0476-09-04T00:00:00Z");
}

TEST(CalendarDate, KnowsTheDaysOfTheMonths) {
    struct Case {
        int64_t year;
        int month, day;
        bool exists;
    };
    for (const Case& c : {Case{2023, 2, 28, true},
                          {2024, 2, 29, true},
                          {2000, 2, 29, true},
                          {0, 1, 1, true},
                          {9999, 12, 31, true},
                          {2023, 2, 29, false},
                          {1900, 2, 29, false},
                          {2024, 4, 31, false},
                          {2024, 0, 1, false},
                          {2024, 13, 1, false},
                          {2024, 1, 0, false},
                          {2024, INT32_MAX, INT32_MIN, false},
                          {INT64_MAX, 1, 1, false}})
        EXPECT_EQ(isCalendarDay({c.year, c.month, c.day, 0, 0, 0}), c.exists)
            << c.year << '-' << c.month << '-' << c.day;
}

TEST(CalendarDate, TakesLocalTimesInTheZoneOfTheSystem) {
    const char* before = getenv("TZ");
    const std::string kept = before == nullptr ? "" : before;
    setenv("TZ", "EST5EDT", 1);
    EXPECT_EQ(referenceTimeOfLocal({2001, 1, 1, 0, 0, 0}), 5 * 3600.0);
    EXPECT_EQ(referenceTimeOfLocal({2001, 7, 1, 0, 0, 0}), referenceTime({2001, 7, 1, 4, 0, 0}));
    before == nullptr ? unsetenv("TZ") : setenv("TZ", kept.c_str(), 1);
    tzset();
}

} // namespace

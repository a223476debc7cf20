// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Package/XMLValues.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

namespace {

TEST(XMLValues, readIntegers) {
    struct {
        std::string_view text;
        std::optional<int> value;
    } const cases[] = {{"0", 0},
                       {" 12 ", 12},
                       {"-3", -3},
                       {"", {}},
                       {"1x", {}},
                       {"x", {}},
                       {"+1", {}},
                       {"99999999999999999999999", 999'999'999},
                       {"-9999999999", -999'999'999}};
    for (const auto& c : cases) EXPECT_EQ(integerValue(c.text), c.value) << c.text;
}

TEST(XMLValues, readLengths) {
    struct {
        std::string_view text;
        double points;
    } const cases[] = {{"1in", 72}, {"1inch", 72}, {"2.54cm", 72}, {"25.4 mm", 72}, {"12pt", 12},
                       {"2pc", 24}, {"2pica", 24}, {"96px", 72},   {"-1in", -72},   {"0.5in", 36}};
    for (const auto& c : cases) {
        ASSERT_TRUE(lengthValue(c.text)) << c.text;
        EXPECT_NEAR(*lengthValue(c.text), c.points, 1e-9) << c.text;
    }
    for (const char* text : {"", "1", "cm", "10%", "1em", "nancm", "infcm", "1e300cm", "1.2.3cm"}) {
        EXPECT_FALSE(lengthValue(text)) << text;
    }
}

TEST(XMLValues, readTimesOfKnownZones) {
    struct {
        std::string_view text;
        double time;
    } const cases[] = {{"2001-01-01T00:00:00Z", 0},
                       {"2001-01-01T00:00Z", 0},
                       {"2001-01-01T02:00:00+02:00", 0},
                       {"2000-12-31T19:30:00-0430", 0},
                       {"2001-01-01T00:00:01.25Z", 1.25},
                       {"2000-02-29T00:00:00Z", -26524800},
                       {" 2011-03-04T05:06:07.890000000Z ", 320907967.89},
                       {"1600-01-01T00:00:00Z", -12654403200.0}};
    for (const auto& c : cases) {
        ASSERT_TRUE(timeValue(c.text)) << c.text;
        EXPECT_NEAR(*timeValue(c.text), c.time, 1e-5) << c.text;
    }
    for (const char* text : {"", "200", "2001-", "2001T00:00:00Z", "2001-01T00:00:00Z", "2001-13-01",
                             "2001-02-29", "2001-01-01T25:00:00Z", "2001-01-01T00", "01.02.2003"}) {
        EXPECT_FALSE(timeValue(text)) << text;
    }
}

TEST(XMLValues, readTimesWithoutAZoneAsLocal) {
    const char* before = std::getenv("TZ");
    std::string kept = before == nullptr ? "" : before;
    setenv("TZ", "EST5", 1);
    tzset();
    EXPECT_EQ(timeValue("2001-01-01T00:00:00"), 5 * 3600.0);
    EXPECT_EQ(timeValue("2001-01-02"), 29 * 3600.0);
    EXPECT_EQ(timeValue("2001-02"), (31 * 24 + 5) * 3600.0); // a month or a year is its first instant
    EXPECT_EQ(timeValue("2002"), (365 * 24 + 5) * 3600.0);
    EXPECT_EQ(timeValue("2001-01-01T00:00:00.5"), 5 * 3600.0 + 0.5);
    before == nullptr ? unsetenv("TZ") : setenv("TZ", kept.c_str(), 1);
    tzset();
}

} // namespace

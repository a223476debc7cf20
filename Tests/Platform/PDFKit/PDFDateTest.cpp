// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSString.h"
#include "Platform/PDFKit/PDFTextString.h"

#include <gtest/gtest.h>

namespace {

double utc(int64_t year, int month = 1, int day = 1, int hour = 0, int minute = 0, int second = 0) {
    return referenceTime({year, month, day, hour, minute, second});
}

TEST(PDFDate, HasAZone) {
    EXPECT_EQ(timeOfPDFDate(u"D:20260131120000Z"), utc(2026, 1, 31, 12));
    EXPECT_EQ(timeOfPDFDate(u"D:20260131120000+01'30'"), utc(2026, 1, 31, 10, 30));
    EXPECT_EQ(timeOfPDFDate(u"D:20260131120000-08'00'"), utc(2026, 1, 31, 20));
    EXPECT_EQ(timeOfPDFDate(u"D:20260131120000-08'00"), utc(2026, 1, 31, 20));
    EXPECT_EQ(timeOfPDFDate(u"D:20260131120000Z00'00'"), utc(2026, 1, 31, 12));
    EXPECT_EQ(timeOfPDFDate(u"D:20260131120000+02"), utc(2026, 1, 31, 10));
}

TEST(PDFDate, IsUTCWithoutAZone) {
    EXPECT_EQ(timeOfPDFDate(u"D:19990209153925"), utc(1999, 2, 9, 15, 39, 25));
}

TEST(PDFDate, MayEndAfterAnyField) {
    EXPECT_EQ(timeOfPDFDate(u"D:2024"), utc(2024));
    EXPECT_EQ(timeOfPDFDate(u"D:202405"), utc(2024, 5));
    EXPECT_EQ(timeOfPDFDate(u"D:20240506"), utc(2024, 5, 6));
    EXPECT_EQ(timeOfPDFDate(u"D:2024050607"), utc(2024, 5, 6, 7));
    EXPECT_EQ(timeOfPDFDate(u"D:202405060708"), utc(2024, 5, 6, 7, 8));
}

TEST(PDFDate, NeedsNoMark) {
    EXPECT_EQ(timeOfPDFDate(u"20240506070809Z"), utc(2024, 5, 6, 7, 8, 9));
    EXPECT_EQ(timeOfPDFDate(u" D:20240506 "), utc(2024, 5, 6));
}

TEST(PDFDate, IsNotMadeOfOtherText) {
    for (const char16_t* text : {u"", u"D:", u"8/2/2007 13:49:06", u"yesterday", u"D:20241301", u"D:20240132",
                                 u"D:2024050624", u"D:202405061", u"D:00000101000000Z", u"D:20240506x",
                                 u"D:20240506070809+25", u"D:20240506070809Z00'00'9", u"D:19:990209153925"})
        EXPECT_FALSE(timeOfPDFDate(text)) << NSString(text).utf8();
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/StringFormat.h"

#include "Platform/Foundation/NSNumber.h"

#include <gtest/gtest.h>

namespace {

TEST(StringFormat, KnowsPrintfsConversions) {
    EXPECT_EQ(stringWithFormat("%d|%5d|%-5d|%05d|%+d", 1, 2, 3, 4, 5).utf8(), "1|    2|3    |00004|+5");
    EXPECT_EQ(stringWithFormat("%u %lu %x %X %o", 7u, 8ul, 255, 255, 8).utf8(), "7 8 ff FF 10");
    EXPECT_EQ(stringWithFormat("%f %.2f %g %e", 1.5, 2.345, 0.1, 1.0).utf8(),
              "1.500000 2.35 0.1 1.000000e+00");
    EXPECT_EQ(stringWithFormat("%c%%%s", 'x', "y").utf8(), "x%y");
    EXPECT_EQ(stringWithFormat("%5s|%.1s", "ab", "ab").utf8(), "   ab|a");
    EXPECT_EQ(stringWithFormat("%p", static_cast<const void*>(nullptr)).utf8(), "(nil)");
}

TEST(StringFormat, CutsIntegersToTheConversionsLength) {
    EXPECT_EQ(stringWithFormat("%hi %hu %hhi", 65537, 65537u, 257).utf8(), "1 1 1");
    EXPECT_EQ(stringWithFormat("%i %u", 0x100000001LL, 0x100000001LL).utf8(), "1 1");
    EXPECT_EQ(stringWithFormat("%ld %lld %lu", INT64_MIN, INT64_MAX, UINT64_MAX).utf8(),
              "-9223372036854775808 9223372036854775807 18446744073709551615");
}

TEST(StringFormat, PrintsObjects) {
    EXPECT_EQ(stringWithFormat("%@ %@ %@", NSString(u"é"), NSNumber::withInt(3), NSObject()).utf8(),
              "é 3 (null)");
}

TEST(StringFormat, KeepsUTF16UnitsOfObjects) {
    std::u16string odd(u"\0\xD800", 2);
    EXPECT_EQ(stringWithFormat("%@", NSString(odd)).text(), odd);
}

TEST(StringFormat, TakesArgumentsByTheirPosition) {
    EXPECT_EQ(stringWithFormat("%2$@ %1$d %2$@", 7, NSString(u"é")).utf8(), "é 7 é");
    EXPECT_EQ(stringWithFormat("%3$s|%1$05d", 7).utf8(), "(null)|00007");
}

TEST(StringFormat, TakesWidthsFromTheArguments) {
    EXPECT_EQ(stringWithFormat("%*d|%-*d|%*d", 4, 1, 4, 2, -4, 3).utf8(), "   1|2   |3   ");
    EXPECT_EQ(stringWithFormat("%.*f|%*.*f|%.*f", 2, 1.5, 6, 1, 1.25, -1, 1.5).utf8(),
              "1.50|   1.2|1.500000");
    EXPECT_EQ(stringWithFormat("%2$*1$d", 3, 7).utf8(), "  7");
}

TEST(StringFormat, KnowsThePlatformsOwnConversions) {
    EXPECT_EQ(stringWithFormat("%C%C", u'\xD83D', u'\xDE00').utf8(), "😀");
    EXPECT_EQ(stringWithFormat("%S", u"漢").utf8(), "漢");
    EXPECT_EQ(stringWithFormat("%D %U %O", INT64_MIN, UINT64_MAX, 8).utf8(),
              "-9223372036854775808 18446744073709551615 10");
    EXPECT_EQ(stringWithFormat("%E %G %F", 1.0, 0.1, 1.5).utf8(), "1.000000E+00 0.1 1.500000");
}

TEST(StringFormat, SurvivesMissingAndMisfittingArguments) {
    EXPECT_EQ(stringWithFormat("%@ %s %d").utf8(), "(null) (null) 0");
    EXPECT_EQ(stringWithFormat("%s %d %@", 1, "x", 2.0).utf8(), "(null) 0 (null)");
    EXPECT_EQ(stringWithFormat("100%").utf8(), "100%");
    EXPECT_EQ(stringWithFormat("%k %5").utf8(), "%k %5");
    EXPECT_EQ(stringWithFormat("%s", static_cast<const char*>(nullptr)).utf8(), "(null)");
}

} // namespace

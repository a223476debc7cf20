// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/CompoundFile/PropertySet.h"

#include "Tests/Support/LittleEndianWriter.h"
#include "Tests/Support/PropertySetWriter.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

TEST(PropertySet, ReadsByteStringsInTheSetsCodePage) {
    struct Case {
        unsigned codePage;
        std::string bytes;
        std::u16string_view text;
    };
    const Case kCases[] = {
        {1252, "caf\xE9\x80"s, u"café€"},
        {0, "caf\xE9"s, u"café"}, // no code page said
        {1251, "\xCF\xF0\xE8\xE2\xE5\xF2"s, u"Привет"},
        {1250, "\xF8\xE1"s, u"řá"},
        {10000, "caf\x8E"s, u"café"},
        {65001, "caf\xC3\xA9"s, u"café"},
        {932, "\x93\xFA\x96\x7B"s, u"日本"},
        {1200, "c\0a\0f\0\xE9\0\0\0"s, u"café"},
        {1252, "ended\0\0\0"s, u"ended"},
        {1252, "ended\0behind"s, u"ended"},
        {1252, ""s, u""},
        {4711, "caf\xE9"s, u"café"}, // an unknown code page
    };
    for (const Case& c : kCases) {
        std::string set = PropertySetWriter(c.codePage).byteString(SummaryProperty::title, c.bytes).finish();
        EXPECT_EQ(PropertySet(set).text(SummaryProperty::title), c.text) << c.codePage;
    }
}

TEST(PropertySet, ReadsWideStrings) {
    std::string set = PropertySetWriter().wideString(SummaryProperty::author, u"Ångström 日本").finish();
    EXPECT_EQ(PropertySet(set).text(SummaryProperty::author), u"Ångström 日本");
    EXPECT_EQ(PropertySet(set).text(SummaryProperty::title), u"");
}

TEST(PropertySet, ReadsTimesAsSecondsSince2001) {
    constexpr uint64_t kStartOf2001 = 126'227'808'000'000'000;
    std::string set = PropertySetWriter()
                          .time(SummaryProperty::creationTime, kStartOf2001)
                          .time(SummaryProperty::lastSavedTime, kStartOf2001 + 15'000'000)
                          .time(14, 0)
                          .number(15, 1)
                          .finish();
    EXPECT_EQ(PropertySet(set).time(SummaryProperty::creationTime), 0.0);
    EXPECT_EQ(PropertySet(set).time(SummaryProperty::lastSavedTime), 1.5);
    EXPECT_EQ(PropertySet(set).time(14), std::nullopt);
    EXPECT_EQ(PropertySet(set).time(15), std::nullopt);
    EXPECT_EQ(PropertySet(set).time(16), std::nullopt);
    EXPECT_EQ(PropertySet(set).text(15), u"");
}

TEST(PropertySet, TakesTimesInTheFirstYearOfTheirCountForNone) {
    constexpr uint64_t kTicksInDay = uint64_t(86'400) * 10'000'000;
    for (uint64_t ticks : {uint64_t(0), uint64_t(1), kTicksInDay, 364 * kTicksInDay}) {
        std::string set = PropertySetWriter().time(SummaryProperty::creationTime, ticks).finish();
        EXPECT_EQ(PropertySet(set).time(SummaryProperty::creationTime), std::nullopt) << ticks;
    }
    std::string set = PropertySetWriter().time(SummaryProperty::creationTime, 365 * kTicksInDay).finish();
    EXPECT_EQ(PropertySet(set).time(SummaryProperty::creationTime), -12'591'244'800.0);
}

TEST(PropertySet, GivesWhatIsThereOfATruncatedSet) {
    std::string set = PropertySetWriter().byteString(2, "the title").byteString(4, "the author").finish();
    for (size_t kept = 0; kept <= set.size(); ++kept) {
        std::string cut = set.substr(0, kept);
        std::u16string title = PropertySet(cut).text(2);
        EXPECT_EQ(title, std::u16string_view(u"the title").substr(0, title.size())) << kept;
    }
}

TEST(PropertySet, BoundsLyingNumbers) {
    struct Lie {
        const char* name;
        size_t offset;
    };
    // The section is at 48; its first property is the code page, its second the title.
    constexpr Lie kLies[] = {{"section", 44}, {"count", 52}, {"offset", 68}, {"length", 84 + 4}};
    for (const Lie& lie : kLies) {
        for (uint32_t value : {0u, 0x7FFFFFFFu, 0xFFFFFFFFu, 0xFFFFFFF8u}) {
            std::string set = PropertySetWriter().byteString(2, "the title").finish();
            put32(set, lie.offset, value);
            EXPECT_LE(PropertySet(set).text(2).size(), set.size()) << lie.name << ' ' << value;
        }
    }
}

} // namespace

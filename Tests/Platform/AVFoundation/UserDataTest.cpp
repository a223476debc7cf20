// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/UserData.h"

#include "Tests/Platform/AVFoundation/MediaItems.h"
#include "Tests/Support/MediaWriter.h"

#include <gtest/gtest.h>

namespace {

constexpr unsigned kEnglish = 0, kJapanese = 11, kRussian = 32, kCzech = 38, kGreek = 14, kTurkish = 17,
                   kUnspecified = 0x7FFF, kPackedGerman = 0x10B5;

std::string userData(std::string_view atoms) { return movieFile(atom("udta", atoms)); }

Texts quickTime(std::string_view atoms) { return textsOf(userData(atoms), MediaKeySpace::quickTimeUserData); }
Texts iso(std::string_view atoms) { return textsOf(userData(atoms), MediaKeySpace::isoUserData); }

std::string international(unsigned language, std::string_view text) {
    return atom("@nam", languageText(language, text));
}

TEST(UserData, DecodesTextByItsLanguage) {
    struct {
        unsigned language;
        std::string_view bytes;
        const char* text;
    } const cases[] = {
        {kEnglish, "caf\x8E", "café"},
        {kUnspecified, "caf\x8E", "café"},
        {kJapanese, "\x93\xFA\x96\x7B", "日本"},
        {kRussian, "\x8C\xE8\xF0", "Мир"},
        {kCzech, "\xCF\xE1\xE3", "ŌŠ„"},
        {kGreek, "\xB0\xE4", "Αδ"},
        {kTurkish, "\xDD", "ı"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(quickTime(international(c.language, c.bytes)), (Texts{{"@nam", c.text}})) << c.language;
    }
}

TEST(UserData, TakesUTF8UnderAMacintoshLanguageForWhatItIs) {
    EXPECT_EQ(quickTime(international(kEnglish, "\xC3\xBC"
                                                "nder")),
              (Texts{{"@nam", "ünder"}}));
}

TEST(UserData, IsUnicodeUnderAPackedLanguage) {
    EXPECT_EQ(quickTime(international(kPackedGerman, "\xC3\xBC")), (Texts{{"@nam", "ü"}}));
    EXPECT_EQ(quickTime(international(kPackedGerman, "\xFE\xFF" + utf16BigEndian(u"ü"))),
              (Texts{{"@nam", "ü"}}));
}

TEST(UserData, GivesEachLanguageAsAnItem) {
    EXPECT_EQ(quickTime(atom("@nam", languageText(kEnglish, "one") + languageText(kPackedGerman, "eins"))),
              (Texts{{"@nam", "one"}, {"@nam", "eins"}}));
}

TEST(UserData, TakesALengthThatCountsItsOwnHeader) {
    EXPECT_EQ(quickTime(atom("@nam", bigEndian(9, 2) + bigEndian(0, 2) + "Title")),
              (Texts{{"@nam", "Title"}}));
}

TEST(UserData, TakesTextWithoutAnyHeader) {
    EXPECT_EQ(quickTime(atom("@nam", "Title")), (Texts{{"@nam", "Title"}}));
}

TEST(UserData, TakesTextsOfAnyLength) {
    for (size_t length = 0; length < 12; ++length) {
        const std::string text = std::string("abcdefghijkl").substr(0, length);
        EXPECT_EQ(quickTime(atom("@nam", text)), (Texts{{"@nam", text}})) << length;
    }
}

TEST(UserData, TakesADataAtomInsideOfAnInternationalOne) {
    EXPECT_EQ(quickTime(atom("@nam", dataAtom(1, "Title"))), (Texts{{"@nam", "Title"}}));
}

TEST(UserData, DropsNullsAtTheEnd) {
    EXPECT_EQ(quickTime(international(kEnglish, std::string("Title\0\0", 7))), (Texts{{"@nam", "Title"}}));
}

TEST(UserData, EndsAtAZeroLength) {
    EXPECT_EQ(quickTime(international(kEnglish, "one") + bigEndian(0, 4) + international(kEnglish, "two")),
              (Texts{{"@nam", "one"}}));
}

TEST(UserData, ReadsTheTextsOfISOFiles) {
    EXPECT_EQ(iso(isoText("titl", "Title") + isoText("perf", "\xFE\xFF" + utf16BigEndian(u"Künstler")) +
                  atom("cprt", "plain") + atom("albm", bigEndian(0, 6) + std::string("Album\0\x07", 7))),
              (Texts{{"titl", "Title"}, {"perf", "Künstler"}, {"cprt", "plain"}, {"albm", "Album"}}));
}

TEST(UserData, ReadsTheNameOfATrack) {
    EXPECT_EQ(quickTime(isoText("tnam", "Track")), (Texts{{"tnam", "Track"}}));
}

TEST(UserData, KeepsItsSpacesApart) {
    const std::string file = movieFile(atom("udta", international(kEnglish, "user") + isoText("titl", "iso") +
                                                        itemList(atom("@nam", dataAtom(1, "iTunes")))) +
                                       keyedItemList({{"com.apple.quicktime.title", dataAtom(1, "keyed")}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::quickTimeUserData), (Texts{{"@nam", "user"}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::isoUserData), (Texts{{"titl", "iso"}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::iTunes), (Texts{{"@nam", "iTunes"}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::quickTimeMetadata),
              (Texts{{"com.apple.quicktime.title", "keyed"}}));
}

} // namespace

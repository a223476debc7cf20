// SPDX-License-Identifier: Apache-2.0
#include "Platform/SearchKit/StructuredText.h"

#include <gtest/gtest.h>

namespace {

TEST(TextOfJSON, HasTheEscapesOfStringsResolved) {
    EXPECT_EQ(textOfJSON(uR"({"k\"\\\/": "K\u00F6ln\nwest\t\uD83D\uDE00"})"),
              u"{\"k\"\\/\": \"Köln\nwest\t😀\"}");
}

TEST(TextOfJSON, OfDamagedJSONIsWhatIsThere) {
    EXPECT_EQ(textOfJSON(uR"(\n "\u12G4 \uD83 \q" \n)"), uR"(\n "u12G4 uD83 q" \n)");
    EXPECT_EQ(textOfJSON(uR"("cut\)"), uR"("cut\)");
    EXPECT_EQ(textOfJSON(u""), u"");
}

TEST(TextOfTable, HasEachFieldOnItsLine) {
    EXPECT_EQ(textOfTable(u"a,b\n1,2\n\"x, y\",3"), u"a\nb\n1\n2\n\"x, y\"\n3");
    EXPECT_EQ(textOfTable(u"a;b\n1,5;2,5"), u"a\nb\n1,5\n2,5") << "commas of numbers";
}

TEST(TextOfSubtitles, LeavesOutNumbersTimesAndMarks) {
    EXPECT_EQ(textOfSubtitles(u"1\r\n00:00:01,000 --> 00:00:02,000\r\n{\\an8}One <b>b</b>old\r\n12\r\n\r\n"
                              u"2\n00:00:03,000 --> 00:00:04,000\nTwo\n"),
              u"One bold\n12\n\nTwo\n");
}

TEST(TextOfSubtitles, LeavesOutTheOtherBlocksOfWebVTT) {
    EXPECT_EQ(textOfSubtitles(u"WEBVTT - title\nKind: captions\n\nNOTE hidden\nhidden\n\nSTYLE\n::cue {}\n\n"
                              u"intro\n00:01.000 --> 00:02.000\n<v Ada>NOTED\n"),
              u"NOTED\n");
}

TEST(TextOfSubtitles, HasOnlyTheDialogueOfScripts) {
    EXPECT_EQ(
        textOfSubtitles(u"[Script Info]\nTitle: t\n[Events]\nFormat: Layer, Text\n"
                        u"Dialogue: 0,0:00:00.00,0:00:01.00,Default,,0,0,0,,{\\i1}One{\\i0}, two\\Nthree\n"
                        u"Dialogue: cut\n"),
        u"One, two three\n\n");
}

TEST(TextOfSubtitles, TakesMarksThatDoNotEndAsText) {
    EXPECT_EQ(textOfSubtitles(u"a < b {c"), u"a < b {c\n");
    EXPECT_EQ(textOfSubtitles(std::u16string(1'000'000, u'<')).size(), 1'000'001u) << "in good time";
}

} // namespace

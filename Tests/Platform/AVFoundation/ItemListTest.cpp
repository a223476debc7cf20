// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/ItemList.h"

#include "Tests/Platform/AVFoundation/MediaItems.h"
#include "Tests/Support/MediaWriter.h"

#include <gtest/gtest.h>

namespace {

std::string iTunesFile(std::string_view items, bool isFull = true) {
    return movieFile(atom("udta", itemList(items, isFull)), "M4A ");
}

Texts iTunes(std::string_view items) { return textsOf(iTunesFile(items), MediaKeySpace::iTunes); }

TEST(ItemList, GivesTextsByTheirFourCharacters) {
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(1, "Title")) + atom("aART", dataAtom(1, "Band"))),
              (Texts{{"@nam", "Title"}, {"aART", "Band"}}));
}

TEST(ItemList, DecodesEachTypeOfText) {
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(1, "caf\xC3\xA9"))), (Texts{{"@nam", "café"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(2, utf16BigEndian(u"café 😀")))), (Texts{{"@nam", "café 😀"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(3, "\x93\xFA\x96\x7B"))), (Texts{{"@nam", "日本"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(4, "sorted"))), (Texts{{"@nam", "sorted"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(5, utf16BigEndian(u"sorted")))), (Texts{{"@nam", "sorted"}}));
}

TEST(ItemList, TakesWhatIsNotUTF8ForTextWithAMarkOrForMacRoman) {
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(1, std::string("\xFF\xFEh\0i\0", 6)))), (Texts{{"@nam", "hi"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(1, std::string("\xFE\xFF\0h\0i", 6)))), (Texts{{"@nam", "hi"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(1, "caf\x8E"))), (Texts{{"@nam", "café"}}));
}

TEST(ItemList, TakesAnUntypedValueForTextOnlyWhereItIsOne) {
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(0, "Test Title"))), (Texts{{"@nam", "Test Title"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(0, "\x01\x02"))), (Texts{{"@nam", "(opaque)"}}));
    EXPECT_EQ(iTunes(atom("@nam", dataAtom(0, ""))), (Texts{{"@nam", "(opaque)"}}));
    EXPECT_EQ(iTunes(atom("trkn", dataAtom(0, "1234"))), (Texts{{"trkn", "(opaque)"}}));
}

TEST(ItemList, GivesNumbersAndLeavesPicturesUnread) {
    EXPECT_EQ(iTunes(atom("tmpo", dataAtom(21, bigEndian(120, 2))) + atom("plID", dataAtom(21, "\xFF")) +
                     atom("cnID", dataAtom(22, bigEndian(0xFFFF, 2))) +
                     atom("covr", dataAtom(13, "\xFF\xD8"))),
              (Texts{{"tmpo", "120"}, {"plID", "-1"}, {"cnID", "65535"}, {"covr", "(opaque)"}}));
    EXPECT_EQ(iTunes(atom("tmpo", dataAtom(21, ""))), (Texts{{"tmpo", "0"}}));
}

TEST(ItemList, GivesEveryValueOfAnItem) {
    EXPECT_EQ(iTunes(atom("@ART", dataAtom(1, "One") + dataAtom(1, "Two"))),
              (Texts{{"@ART", "One"}, {"@ART", "Two"}}));
}

TEST(ItemList, LeavesOutFreeFormItemsAndUnprintableNames) {
    EXPECT_EQ(iTunes(atom("----", atom("mean", "xxxxorg") + dataAtom(1, "v")) +
                     atom("\1\2\3\4", dataAtom(1, "v")) + atom("@nam", dataAtom(1, "Title"))),
              (Texts{{"@nam", "Title"}}));
}

TEST(ItemList, IsReadWithAndWithoutVersionAndFlags) {
    for (bool isFull : {true, false}) {
        EXPECT_EQ(textsOf(iTunesFile(atom("@nam", dataAtom(1, "Title")), isFull), MediaKeySpace::iTunes),
                  (Texts{{"@nam", "Title"}}))
            << isFull;
    }
}

TEST(ItemList, WithNamesOfKeysIsQuickTimeMetadata) {
    const std::string file =
        movieFile(keyedItemList({{"com.apple.quicktime.title", dataAtom(1, "Title")},
                                 {"com.apple.quicktime.artist", dataAtom(2, utf16BigEndian(u"A"))},
                                 {"com.example.number", dataAtom(21, "\x07")}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::quickTimeMetadata), (Texts{{"com.apple.quicktime.title", "Title"},
                                                                      {"com.apple.quicktime.artist", "A"},
                                                                      {"com.example.number", "7"}}));
    EXPECT_EQ(textsOf(file, MediaKeySpace::iTunes), Texts());
}

TEST(ItemList, PassesOverAValueWithoutAKey) {
    std::string list = keyedItemList({{"com.apple.quicktime.title", dataAtom(1, "Title")}});
    const size_t index = list.find("ilst") + 4 + 7;
    list[index] = 9;
    EXPECT_EQ(textsOf(movieFile(list), MediaKeySpace::quickTimeMetadata), Texts());
    list[index] = 0;
    EXPECT_EQ(textsOf(movieFile(list), MediaKeySpace::quickTimeMetadata), Texts());
}

TEST(ItemList, EndsAtANameThatClaimsMoreThanThereIs) {
    std::string list = keyedItemList({{"com.apple.quicktime.title", dataAtom(1, "Title")},
                                      {"com.apple.quicktime.artist", dataAtom(1, "A")}});
    list[list.rfind("mdtacom.apple.quicktime.artist") - 4] = '\x7F';
    EXPECT_EQ(textsOf(movieFile(list), MediaKeySpace::quickTimeMetadata),
              (Texts{{"com.apple.quicktime.title", "Title"}}));
}

TEST(ItemList, MayStandAtTheTopOfTheFile) {
    EXPECT_EQ(
        textsOf(atom("ftyp", "isom") + itemList(atom("@nam", dataAtom(1, "Title"))), MediaKeySpace::iTunes),
        (Texts{{"@nam", "Title"}}));
}

} // namespace

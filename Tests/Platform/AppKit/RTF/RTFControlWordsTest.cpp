// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFControlWords.h"

#include "Platform/AppKit/StoryBuilder.h"

#include <gtest/gtest.h>

namespace {

TEST(RTFControlWords, areFoundByTheirWholeNames) {
    struct {
        const char* name;
        RTFAction action;
        uint16_t value;
    } const kCases[] = {
        {"tab", RTFAction::character, kTab},
        {"line", RTFAction::character, kLineBreak},
        {"par", RTFAction::paragraphEnd, 0},
        {"u", RTFAction::unicode, 0},
        {"v", RTFAction::hidden, kRTFHiddenText},
        {"mac", RTFAction::documentCodePage, 10000},
        {"margb", RTFAction::number, kRTFBottomMargin},
        {"revtim", RTFAction::time, kRTFModificationTime},
        {"listoverridetable", RTFAction::skipped, 0},
        {"NeXTGraphic", RTFAction::attachment, 0},
    };
    for (const auto& c : kCases) {
        const RTFControlWord* word = findRTFControlWord(c.name);
        ASSERT_NE(word, nullptr) << c.name;
        EXPECT_STREQ(word->name, c.name);
        EXPECT_EQ(word->action, c.action) << c.name;
        EXPECT_EQ(word->value, c.value) << c.name;
    }
}

TEST(RTFControlWords, othersAreNotFound) {
    for (const char* name : {"", "pa", "part", "Par", "PAR", "nextgraphic", "listoverridetables", "z",
                             "awordthatismuchlongerthananyinthetable"})
        EXPECT_EQ(findRTFControlWord(name), nullptr) << name;
}

} // namespace

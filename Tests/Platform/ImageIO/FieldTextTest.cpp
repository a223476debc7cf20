// SPDX-License-Identifier: Apache-2.0
#include "Platform/ImageIO/FieldText.h"

#include "Platform/Foundation/UnicodeText.h"

#include <gtest/gtest.h>

namespace {

std::string text(std::string_view bytes, bool isUTF8Text = false) {
    return toUTF8(textOfField(bytes, isUTF8Text));
}

TEST(FieldText, IsUTF8WhereItIsValid) {
    EXPECT_EQ(text("Z\xC3\xBCrich"), "Zürich");
    EXPECT_EQ(text("plain"), "plain");
    EXPECT_EQ(text(""), "");
}

TEST(FieldText, IsUTF8WhereItSaysSo) { EXPECT_EQ(text("Z\xFCrich", true), "Z\uFFFDrich"); }

TEST(FieldText, IsOfTheCodePageThatMakesWords) {
    const std::pair<const char*, const char*> cases[] = {
        {"\xA9 Corbis", "© Corbis"},
        {"K\xE5lltorp", "Kålltorp"},
        {"\xCEle", "Île"},
        {"Z\xFCrich \x96 Bern", "Zürich – Bern"},
        {"\x93quoted\x94", "“quoted”"},
        {"Photographer\xD5s", "Photographer’s"},
        {"Tosteberga \x80ngar", "Tosteberga Ängar"},
        {"Jens Tr\x9F"
         "biger",
         "Jens Trübiger"},
        {"caf\x8E", "café"},
    };
    for (const auto& [bytes, expected] : cases) EXPECT_EQ(text(bytes), expected);
}

TEST(FieldText, EndsBeforeTrailingNullsAndKeepsBlanks) {
    EXPECT_EQ(text(std::string_view("OLYMPUS   \0\0", 12)), "OLYMPUS   ");
}

} // namespace

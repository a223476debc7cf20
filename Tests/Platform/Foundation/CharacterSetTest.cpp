// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/CharacterSet.h"

#include "Platform/Foundation/UnicodeText.h"

#include <gtest/gtest.h>

namespace {

// What becomes of a text that is written in an encoding which nobody names.
std::u16string readBack(std::u16string_view text, NSStringEncoding encoding) {
    std::string bytes;
    EXPECT_TRUE(appendEncoded(bytes, text, encoding));
    std::u16string decoded;
    appendDecoded(decoded, bytes, likelyEncoding(bytes));
    return decoded;
}

TEST(CharacterSet, IsToldByTheLanguageOfTheText) {
    const std::u16string_view russian = u"Все счастливые семьи похожи друг на друга, каждая несчастливая "
                                        u"семья несчастлива по-своему. Все смешалось в доме.";
    for (const NSStringEncoding encoding :
         {encodingForIANAName("windows-1251"), encodingForIANAName("koi8-r")})
        EXPECT_EQ(readBack(russian, encoding), russian) << encoding;
    const std::u16string_view japanese = u"吾輩は猫である。名前はまだ無い。どこで生れたかとんと見当がつかぬ。"
                                         u"何でも薄暗いじめじめした所で泣いていた。";
    for (const NSStringEncoding encoding : {NSShiftJISStringEncoding, NSJapaneseEUCStringEncoding})
        EXPECT_EQ(readBack(japanese, encoding), japanese) << encoding;
    const std::u16string_view korean =
        u"모든 인간은 태어날 때부터 자유로우며 그 존엄과 권리에 있어 동등하다.";
    EXPECT_EQ(readBack(korean, encodingForIANAName("euc-kr")), korean);
}

TEST(CharacterSet, IsTheCodePage1252WhereNothingIsClear) {
    for (const std::u16string_view text :
         {u"Schöne Grüße aus Köln über die Straße", u"\u201CKöln\u201D", u"é"})
        EXPECT_EQ(readBack(text, NSWindowsCP1252StringEncoding), text);
}

TEST(CharacterSet, IsOneOfUnicodeWhereItCanBe) {
    for (const NSStringEncoding encoding :
         {NSUTF8StringEncoding, NSUTF16BigEndianStringEncoding, NSUTF16LittleEndianStringEncoding})
        EXPECT_EQ(readBack(u"Köln words", encoding), u"Köln words") << encoding;
    EXPECT_EQ(likelyEncoding("\xEF\xBB\xBF"), NSStringEncoding(NSUTF8StringEncoding));
    EXPECT_EQ(likelyEncoding("\xFE\xFF"), NSStringEncoding(NSUnicodeStringEncoding));
    EXPECT_EQ(likelyEncoding(""), NSStringEncoding(NSUTF8StringEncoding));
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Tests/Platform/AppKit/RTF/RTFTesting.h"

#include <chrono>
#include <string>

namespace {

using namespace std::string_view_literals;

std::string repeated(std::string_view piece, size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (size_t i = 0; i < times; ++i) text += piece;
    return text;
}

TEST(RTFDamage, tellsWhatIsNoRTF) {
    for (std::string_view bytes : {""sv, "   "sv, "\0\0"sv, "plain text"sv, "x{\\rtf1 a}"sv, "{\\r"sv,
                                   "{\\b a}"sv, "{rtf1}"sv, "\\rtf1"sv, "<html>"sv, "{\\html}"sv}) {
        for (DocumentReader reader : {readRTF, readRTFDText}) {
            DocumentContents contents;
            Deadline deadline;
            EXPECT_EQ(reader(bytes, deadline, contents), ReadStatus::wrongKind) << bytes;
            EXPECT_EQ(contents.text, u"") << bytes;
        }
    }
}

TEST(RTFDamage, beginsBehindJunkAndStopsAtTheEndOfTheFirstGroup) {
    EXPECT_EQ(textOf("\xEF\xBB\xBF{\\rtf1 a}"), u"a");
    EXPECT_EQ(textOf(" \r\n\t{\\rtf1 a}"), u"a");
    EXPECT_EQ(textOf("\0\0{\\rtf1 a}"sv), u"a");
    EXPECT_EQ(textOf("{\\rt a}"), u"a");
    EXPECT_EQ(textOf("{\\rtf1 a}b{\\rtf1 c}"), u"a");
    EXPECT_EQ(textOf("{\\rtf1 a}}}b"), u"a");
    EXPECT_EQ(textOf("{\\rtf1}"), u"");
}

TEST(RTFDamage, readsWhatStandsBeforeTheEndOfOpenGroups) {
    EXPECT_EQ(textOf("{\\rtf1 a{\\b b{\\i c"), u"abc");
    EXPECT_EQ(textOf("{\\rtf1 a{\\footnote n"), u"a\nn\n");
    EXPECT_EQ(textOf("{\\rtf1 a{\\shp{\\*\\shpinst{\\shptxt b"), u"a\nb\n");
    EXPECT_EQ(textOf("{\\rtf1{\\listtext 1."), u"\t1.\t");
    EXPECT_EQ(textOf("{\\rtf1 a{\\pict 0123"), u"a");
    EXPECT_EQ(textOf("{\\rtf1 a{\\pict\\bin100 0123}b}"), u"a");
    EXPECT_EQ(textOf("{\\rtf1 a\\"), u"a");
    EXPECT_EQ(textOf("{\\rtf1 a\\'"), u"a");
    EXPECT_EQ(contentsOf("{\\rtf1{\\info{\\title Ti").info.title, u"Ti");
    EXPECT_EQ(textOf("{\\rtf1"), u"");
}

TEST(RTFDamage, givesAPrefixOfTheTextForAPrefixOfTheDocument) {
    const std::string rtf =
        "{\\rtf1\\ansi\\ansicpg932\\cocoartf2761{\\fonttbl\\f0\\fcharset0 Times;\\f1\\fcharset128 Mincho;}\n"
        "{\\info{\\title T}{\\author A}}\\deftab720\n"
        "\\f0 First {\\b bold} paragraph.\\par {\\listtext\t\\uc0\\u8226 \t}item\\par\n"
        "\\trowd\\cellx10 one\\cell two\\cell\\row {\\field{\\*\\fldinst X}{\\fldrslt result}}\\line\n"
        "\\f1 \\'82\\'a0\\'82\\'a2 \\uc1\\u-10179?\\u-8704?{\\pict\\pngblip 0011223344}\\page end\\par}";
    const std::u16string whole = textOf(rtf);
    EXPECT_EQ(whole,
              u"First bold paragraph.\n\t\u2022\titem\none\ntwo\nresult\u2028\u3042\u3044 \U0001F600\fend\n");
    for (size_t percent = 1; percent <= 100; ++percent) {
        DocumentContents contents;
        Deadline deadline;
        std::string_view part = std::string_view(rtf).substr(0, rtf.size() * percent / 100);
        if (readRTF(part, deadline, contents) == ReadStatus::wrongKind) {
            EXPECT_LT(part.size(), 4u);
            continue;
        }
        // What is cut through may read as another character, and a cut marker is completed by its tab.
        std::u16string_view text = contents.text;
        text.remove_suffix(std::min<size_t>(text.size(), 1));
        EXPECT_TRUE(whole.starts_with(text)) << percent;
    }
}

TEST(RTFDamage, readsDeeplyNestedGroups) {
    const auto start = std::chrono::steady_clock::now();
    constexpr size_t kDepth = 100'000;
    EXPECT_EQ(textOf("{\\rtf1 a" + repeated("{\\b ", kDepth) + "b" + repeated("}", kDepth) + "c}"), u"abc");
    EXPECT_EQ(textOf("{\\rtf1 a" + repeated("{", kDepth) + "b"), u"ab");
    EXPECT_EQ(textOf("{\\rtf1 a" + repeated("{\\footnote ", 1000) + "b" + repeated("}", 1000) + "c}"),
              u"ac\nb\n");
    EXPECT_EQ(textOf("{\\rtf1 a{\\pict" + repeated("{", kDepth) + "b" + repeated("}", kDepth) + "}c}"),
              u"ac");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST(RTFDamage, leavesOutWhatLiesTooDeep) {
    constexpr size_t kDepth = 1'000'000;
    EXPECT_EQ(textOf("{\\rtf1 a" + repeated("{", kDepth) + "b" + repeated("}", kDepth) + "c}"), u"ac");
}

TEST(RTFDamage, passesOverPartsInsideParts) {
    EXPECT_EQ(infoOf("{\\info{\\title a{\\author b}{\\creatim\\yr2001}{\\footnote c}{\\pict 00}d}}").title,
              u"ad");
    EXPECT_EQ(textOfBody("{\\info{\\footnote a}{\\listtext b}{\\shptxt c}x}y"), u"y");
    EXPECT_EQ(textOfBody("{\\fonttbl{\\f0{\\footnote a}{\\*\\ud b};}}y"), u"y");
    EXPECT_EQ(textOfBody("{\\listtext a{\\listtext b}{\\footnote c}}y"), u"\ta\ty");
    EXPECT_EQ(textOfBody("{\\shptxt a\\footnote b}c\\par"), u"c\na\n");
    EXPECT_EQ(textOfBody("{\\*\\*\\unknown a}{\\*b}{\\*{c}}{\\*}d"), u"bcd");
}

TEST(RTFDamage, stopsAtTheDeadlineWithWhatItHas) {
    Deadline deadline(std::chrono::duration<double>(0));
    DocumentContents contents;
    EXPECT_EQ(readRTF("{\\rtf1 " + repeated("a\\par ", 10'000) + "}", deadline, contents), ReadStatus::read);
    EXPECT_TRUE(contents.text.starts_with(u"a\na\n"));
    EXPECT_LT(contents.text.size(), 2000u);
}

} // namespace

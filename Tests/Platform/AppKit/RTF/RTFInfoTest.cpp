// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/Keywords.h"

#include "Tests/Platform/AppKit/RTF/RTFTesting.h"

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::u16string>;

// Sets the process's time zone for as long as it lives.
class TimeZone {
public:
    explicit TimeZone(const char* name) {
        setenv("TZ", name, 1);
        tzset();
    }
    ~TimeZone() {
        unsetenv("TZ");
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
};

TEST(RTFInfo, hasTheStringsOfTheInformationGroup) {
    DocumentContents contents = contentsOf(
        "{\\rtf1\\ansi{\\info{\\title T\\'e9}{\\subject S}{\\author A \\u8226?}{\\manager M}{\\*\\company C}"
        "{\\operator E}{\\category G}{\\keywords k}{\\doccomm D}{\\*\\copyright R}{\\hlinkbase H}{\\version3}"
        "{\\*\\userprops{\\propname n}\\proptype30{\\staticval v}}}x}");
    EXPECT_EQ(contents.info.title, u"T\u00E9");
    EXPECT_EQ(contents.info.subject, u"S");
    EXPECT_EQ(contents.info.author, u"A \u2022");
    EXPECT_EQ(contents.info.manager, u"M");
    EXPECT_EQ(contents.info.company, u"C");
    EXPECT_EQ(contents.info.editor, u"E");
    EXPECT_EQ(contents.info.category, u"G");
    EXPECT_EQ(contents.info.keywords, Strings{u"k"});
    EXPECT_EQ(contents.info.comment, u"D");
    EXPECT_EQ(contents.info.copyright, u"R");
    EXPECT_EQ(contents.text, u"x");
}

TEST(RTFInfo, prefersTheSummarysComment) {
    EXPECT_EQ(infoOf("{\\info{\\comment a}{\\doccomm b}}").comment, u"b");
    EXPECT_EQ(infoOf("{\\info{\\doccomm b}{\\*\\comment a}}").comment, u"b");
    EXPECT_EQ(infoOf("{\\info{\\comment a}}").comment, u"a");
}

TEST(RTFInfo, takesStringsInsideTheInformationGroupOnly) {
    DocumentContents contents = contentsOf("{\\rtf1 a{\\title T}{\\comment c}b}");
    EXPECT_EQ(contents.info.title, u"");
    EXPECT_EQ(contents.info.comment, u"");
    EXPECT_EQ(contents.text, u"ab");
}

TEST(RTFInfo, decodesStringsInTheDocumentsCodePage) {
    constexpr std::string_view kRTF = "{\\rtf1\\ansi\\ansicpg1251\\deff0{\\fonttbl{\\f0\\fcharset0 A;}}"
                                      "{\\info{\\title\\'e1}{\\author\\'e2}}\\'e1}";
    EXPECT_EQ(contentsOf(kRTF).info.title, u"\u0431");
    EXPECT_EQ(contentsOf(kRTF).info.author, u"\u0432");
    EXPECT_EQ(contentsOf(kRTF).text, u"\u00E1");
    EXPECT_EQ(contentsOf("{\\rtf1\\ansicpg932{\\info{\\title\\'82\\'a0}{\\author\\'82\\'a2}}}").info.title,
              u"\u3042");
}

TEST(RTFInfo, splitsKeywordsAtCommas) {
    struct {
        std::string_view keywords;
        Strings split;
    } const kCases[] = {
        {"", {}},
        {" ", {}},
        {"a", {u"a"}},
        {"a b", {u"a b"}},
        {"a, b ,c", {u"a", u"b", u"c"}},
        {",a,, b,", {u"a", u"b"}},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(infoOf("{\\info{\\keywords " + std::string(c.keywords) + "}}").keywords, c.split)
            << c.keywords;
}

TEST(RTFInfo, leavesOutKeywordsPastTheirLimit) {
    std::string keywords;
    for (size_t i = 0; i < 2 * kKeywordLimit; ++i) keywords += "k,";
    EXPECT_EQ(infoOf("{\\info{\\keywords " + keywords + "}}").keywords.size(), kKeywordLimit);
}

TEST(RTFInfo, takesTimesAsLocalTimes) {
    constexpr std::string_view kInfo =
        "{\\info{\\creatim\\yr2001\\mo1\\dy2\\hr3\\min4\\sec5}"
        "{\\revtim\\yr2021\\mo7\\dy1\\hr0\\min0}{\\printim\\yr1999\\mo1\\dy1}}";
    {
        TimeZone zone("UTC");
        EXPECT_EQ(infoOf(kInfo).creationTime, 86400.0 + 3 * 3600 + 4 * 60 + 5);
        EXPECT_EQ(infoOf(kInfo).modificationTime, 646790400.0);
    }
    TimeZone zone("EST5EDT");
    EXPECT_EQ(infoOf(kInfo).creationTime, 86400.0 + 8 * 3600 + 4 * 60 + 5);
    EXPECT_EQ(infoOf(kInfo).modificationTime, 646790400.0 + 4 * 3600);
}

TEST(RTFInfo, leavesOutTimesThatNoCalendarHas) {
    TimeZone zone("UTC");
    for (const char* time : {"", "\\yr0\\mo0\\dy0", "\\yr2001", "\\yr2001\\mo13\\dy1", "\\yr2001\\mo2\\dy29",
                             "\\yr2001\\mo1\\dy32", "\\yr2001\\mo1\\dy1\\hr24", "\\yr2001\\mo1\\dy1\\min60",
                             "\\yr2001\\mo1\\dy1\\sec-1", "\\yr2147483647\\mo1\\dy1", "\\yr-5\\mo1\\dy1"})
        EXPECT_EQ(infoOf("{\\info{\\creatim" + std::string(time) + "}}").creationTime, std::nullopt) << time;
    EXPECT_EQ(infoOf("{\\info{\\creatim\\yr1969\\mo12\\dy31\\hr23\\min59\\sec59}}").creationTime,
              -978307201.0);
    EXPECT_EQ(infoOf("{\\info{\\creatim\\yr1601\\mo1\\dy1}}").creationTime, -12622780800.0);
    // A field of one time is none of the next.
    EXPECT_EQ(infoOf("{\\info{\\revtim\\yr2001\\mo1\\dy1\\hr1}{\\creatim\\yr2001\\mo1\\dy1}}").creationTime,
              0.0);
}

TEST(RTFInfo, hasTheDefaultsOfTheFormat) {
    DocumentInfo info = infoOf("x");
    EXPECT_EQ(info.cocoaVersion, 80);
    ASSERT_TRUE(info.paperSize.has_value());
    EXPECT_EQ(info.paperSize->width, 612);
    EXPECT_EQ(info.paperSize->height, 792);
    EXPECT_EQ(info.leftMargin, 90);
    EXPECT_EQ(info.rightMargin, 90);
    EXPECT_EQ(info.topMargin, 72);
    EXPECT_EQ(info.bottomMargin, 72);
    EXPECT_EQ(info.defaultTabInterval, 36);
    EXPECT_EQ(info.hyphenationFactor, 0);
    EXPECT_FALSE(info.viewSize || info.viewZoom || info.viewMode || info.readOnly);
    EXPECT_FALSE(info.converted || info.characterEncoding || info.creationTime || info.modificationTime);
}

TEST(RTFInfo, hasTheNumbersOfTheDocument) {
    DocumentInfo info =
        infoOf("\\cocoartf2761\\paperw11900\\paperh16840\\margl1440\\margr1441\\margt0\\margb-20"
               "\\deftab720\\vieww10800\\viewh8400\\viewscale125\\viewkind1\\readonlydoc1"
               "\\hyphauto1\\hyphfactor90");
    EXPECT_EQ(info.cocoaVersion, 2761);
    EXPECT_EQ(info.paperSize->width, 595);
    EXPECT_EQ(info.paperSize->height, 842);
    EXPECT_EQ(info.leftMargin, 72);
    EXPECT_EQ(info.rightMargin, 72.05);
    EXPECT_EQ(info.topMargin, 0);
    EXPECT_EQ(info.bottomMargin, -1);
    EXPECT_EQ(info.defaultTabInterval, 36);
    EXPECT_EQ(info.viewSize->width, 540);
    EXPECT_EQ(info.viewSize->height, 420);
    EXPECT_EQ(info.viewZoom, 125);
    EXPECT_EQ(info.viewMode, 1);
    EXPECT_EQ(info.readOnly, 1);
    EXPECT_EQ(info.hyphenationFactor, 0.9);
}

TEST(RTFInfo, readsSwitchesAndDamagedNumbers) {
    EXPECT_EQ(infoOf("\\cocoartf102").defaultTabInterval, 0);
    EXPECT_EQ(infoOf("\\hyphauto").hyphenationFactor, 1);
    EXPECT_EQ(infoOf("\\hyphauto0\\hyphfactor90").hyphenationFactor, 0);
    EXPECT_EQ(infoOf("\\hyphauto1\\hyphfactor900").hyphenationFactor, 1);
    EXPECT_EQ(infoOf("\\hyphauto1\\hyphfactor-9").hyphenationFactor, 0);
    EXPECT_EQ(infoOf("\\readonlydoc").readOnly, 1);
    EXPECT_EQ(infoOf("\\readonlydoc0").readOnly, 0);
    EXPECT_EQ(infoOf("\\viewkind4").viewMode, 0);
    EXPECT_EQ(infoOf("\\viewkind").viewMode, std::nullopt);
    EXPECT_FALSE(infoOf("\\vieww10800").viewSize.has_value());
    EXPECT_EQ(infoOf("\\paperw0\\paperh-1").paperSize->width, 612);
    EXPECT_EQ(infoOf("\\paperw0\\paperh-1").paperSize->height, 792);
    EXPECT_EQ(infoOf("\\paperw2147483647").paperSize->width, 2147483647 / 20.0);
}

// A document with a shape of these properties behind its pages.
std::string withBackground(const std::string& properties) {
    return "{\\*\\background{\\shp{\\*\\shpinst\\shpleft0" + properties + "}}}x";
}

TEST(RTFInfo, hasTheColorOfTheShapeBehindThePages) {
    const std::string type = "{\\sp{\\sn shapeType}{\\sv 1}}", filled = "{\\sp{\\sn fFilled}{\\sv 1}}";
    const DocumentContents contents = contentsOf(
        "{\\rtf1 " + withBackground(type + "{\\sp{\\sn fillColor}{\\sv 13395507}}" + filled) + "}");
    ASSERT_TRUE(contents.info.backgroundColor);
    EXPECT_EQ(contents.info.backgroundColor->red, 0x33);
    EXPECT_EQ(contents.info.backgroundColor->green, 0x66);
    EXPECT_EQ(contents.info.backgroundColor->blue, 0xCC);
    EXPECT_EQ(contents.text, u"x");
    EXPECT_TRUE(infoOf(withBackground("{\\sp{\\sn fillColor}{\\sv 0}}")).backgroundColor);
}

TEST(RTFInfo, hasNoColorWhereThePagesHaveNone) {
    for (const char* properties :
         {"", "{\\sp{\\sn fillColor}{\\sv 255}}{\\sp{\\sn fFilled}{\\sv 0}}", "{\\sp{\\sn fillColor}}",
          "{\\sp{\\sn fillColor}{\\sv red}}", "{\\sp{\\sn fillColor}{\\sv 134217733}}",
          "{\\sp{\\sn fillColor}{\\sv -1}}", "{\\sp{\\sn lineColor}{\\sv 255}}"})
        EXPECT_FALSE(infoOf(withBackground(properties)).backgroundColor) << properties;
    // A shape on the page is none behind it.
    EXPECT_FALSE(infoOf("{\\shp{\\*\\shpinst{\\sp{\\sn fillColor}{\\sv 255}}}}").backgroundColor);
}

TEST(RTFInfo, showsNoTextOfTheShapeBehindThePages) {
    EXPECT_EQ(
        contentsOf("{\\rtf1 a" +
                   withBackground("{\\shptxt no\\par}{\\footnote no}{\\info{\\title no}}{\\result no}no") +
                   "}")
            .text,
        u"ax");
}

} // namespace

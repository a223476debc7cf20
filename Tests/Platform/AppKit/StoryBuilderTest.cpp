// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/StoryBuilder.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>

namespace {

// Plays a script: `(` and `)` begin and end a box, `[` and `]` a note, `.` ends the paragraph; the rest is
// text.
std::u16string play(std::u16string_view script) {
    StoryBuilder story;
    for (char16_t c : script) {
        switch (c) {
        case u'(': story.beginTextBox(); break;
        case u')': story.endTextBox(); break;
        case u'[': story.beginNote(); break;
        case u']': story.endNote(); break;
        case u'.': story.endParagraph(); break;
        default: story.append(c); break;
        }
    }
    return std::move(story).finish();
}

struct StoryCase {
    std::u16string_view script, text;
};

template <size_t count>
void expectStories(const StoryCase (&cases)[count]) {
    for (const StoryCase& c : cases) EXPECT_EQ(play(c.script), c.text) << testing::PrintToString(c.script);
}

TEST(StoryBuilder, keepsTheMainStoryAsItIs) {
    constexpr StoryCase kCases[] = {{u"", u""}, {u"a", u"a"}, {u"a.", u"a\n"}, {u"a..b", u"a\n\nb"}};
    expectStories(kCases);
}

TEST(StoryBuilder, setsBoxesBehindTheParagraphOfTheirAnchor) {
    constexpr StoryCase kCases[] = {
        {u"a(b)c.d", u"ac\nb\nd"},
        {u"a(b)(c)d.e.", u"ad\nb\nc\ne\n"},
        {u"a(b.)c.", u"ac\nb\n"},
        {u"a(b.c)d.", u"ad\nb\nc\n"},
        {u"a()b.", u"ab\n"},
        {u"(a)", u"a\n"},
        {u"a(b)", u"a\nb\n"},
        {u"a.(b)", u"a\nb\n"},
        {u"a(b(c)d)e.", u"ae\nbd\nc\n"},
        {u"a(b(c)d.e)f.", u"af\nbd\nc\ne\n"},
        {u"a((b))c.", u"ac\nb\n"},
    };
    expectStories(kCases);
}

TEST(StoryBuilder, setsNotesBehindTheMainStoryInOrder) {
    constexpr StoryCase kCases[] = {
        {u"a[b]c.d", u"ac\nd\nb\n"},
        {u"a[b]", u"a\nb\n"},
        {u"a[b]c[d.]e.", u"ace\nb\nd\n"},
        {u"a[]b", u"ab"},
        {u"[a]", u"a\n"},
        {u"a[b[c]d]e[f]", u"ae\nbd\nc\nf\n"},
        {u"a(b[c]d)e.f", u"ae\nbd\nf\nc\n"},
        {u"a[b(c)d.e]f", u"af\nbd\nc\ne\n"},
        {u"a[b(c)]f", u"af\nb\nc\n"},
    };
    expectStories(kCases);
}

TEST(StoryBuilder, endsWhatIsOpenAndIgnoresEndsWithoutBegins) {
    constexpr StoryCase kCases[] = {
        {u"a)b]c", u"abc"},
        {u"a(b", u"a\nb\n"},
        {u"a[b(c", u"a\nb\nc\n"},
        {u"a(b]c)d.", u"ad\nbc\n"},
        {u"a[b(c]d.e", u"ad\ne\nb\nc\n"},
    };
    expectStories(kCases);
}

TEST(StoryBuilder, givesDeeperTextToTheInnermostAllowed) {
    constexpr size_t kMore = 3;
    const size_t depth = StoryBuilder::kDepthLimit + kMore;
    std::u16string script = u"a" + std::u16string(depth, u'(') + u"b" + std::u16string(kMore, u')') + u"c" +
                            std::u16string(StoryBuilder::kDepthLimit, u')') + u"d.";
    EXPECT_EQ(play(script), u"ad\nbc\n");

    std::u16string mixed = u"a" + std::u16string(StoryBuilder::kDepthLimit, u'[') + u"b(c[d]e)f";
    EXPECT_EQ(play(mixed), u"a\nbcdef\n");
}

TEST(StoryBuilder, writesBreaksAndMarkers) {
    StoryBuilder story;
    EXPECT_TRUE(story.atParagraphStart());
    story.listMarker(u"1.");
    EXPECT_FALSE(story.atParagraphStart());
    story.append(u"a");
    story.lineBreak();
    story.tab();
    story.pageBreak();
    story.endParagraph();
    EXPECT_TRUE(story.atParagraphStart());
    story.beginNote();
    EXPECT_TRUE(story.atParagraphStart());
    story.current() += u"n";
    EXPECT_FALSE(story.atParagraphStart());
    story.endNote();
    EXPECT_EQ(std::move(story).finish(), u"\t1.\ta\u2028\t\f\nn\n");
}

TEST(StoryBuilder, BeginsPagesBetweenParagraphsOfTheMainStoryOnly) {
    StoryBuilder story;
    story.beginPage();
    story.append(u"a");
    story.beginPage();
    story.endParagraph();
    story.beginPage();
    story.beginPage();
    story.append(u"b");
    story.beginTextBox();
    story.append(u"box\n");
    story.beginPage();
    story.append(u"more");
    story.endTextBox();
    EXPECT_EQ(std::move(story).finish(), u"a\n\fb\nbox\nmore\n");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/HTML/HTMLTree.h"
#include "Tests/Platform/AppKit/HTML/HTMLTesting.h"

#include <algorithm>
#include <chrono>
#include <random>

namespace {

using namespace HTMLTesting;

const std::string kPage = "\xEF\xBB\xBF<!DOCTYPE html><html><head><meta "
                          "charset=utf-8><title>Title</title><meta name=author content=Author>"
                          "<style>.a{display:none} ul > li.b{text-transform:uppercase}</style><script>var x "
                          "= '<p>';</script></head>"
                          "<body><h1>Heading</h1><p>One &eacute; <b>two</b><br>three</p><ul><li>item<li "
                          "class=b>other</ul><table><tr><td>1"
                          "<td>2</table><pre> a\n b</pre><p class=a>x</p><q>quoted</q><img "
                          "src=p><svg><text>t</text></svg></body></html>";

TEST(HTMLDamage, takesAnyPartOfADocument) {
    const std::u16string whole = read(kPage).text;
    size_t longest = 0;
    for (size_t percent = 0; percent <= 100; ++percent) {
        const DocumentContents part = read(std::string_view(kPage).substr(0, kPage.size() * percent / 100));
        EXPECT_LE(part.text.size(), whole.size() + 8) << percent;
        longest = std::max(longest, part.text.size());
        if (percent >= 50) {
            EXPECT_EQ(part.info.title, u"Title") << percent;
        }
        if (percent >= 70) {
            EXPECT_EQ(part.text.substr(0, 8), u"Heading\n") << percent;
        }
    }
    EXPECT_GE(longest, whole.size());
}

TEST(HTMLDamage, takesChangedBytes) {
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        std::string page = kPage;
        for (int change = 0; change < 8; ++change) page[random() % page.size()] = char(random());
        EXPECT_LT(read(page).text.size(), page.size() * 2);
    }
}

TEST(HTMLDamage, takesBytesThatAreNoHTML) {
    EXPECT_EQ(read("{\\rtf1 a}").text, u"{\\rtf1 a}");
    EXPECT_EQ(read(std::string(1000, '\0')).text, u"");
    EXPECT_EQ(read("a < b <c").text, u"a < b");
    std::mt19937 random(2);
    std::string noise(10000, ' ');
    for (char& c : noise) c = char(random());
    read(noise);
}

TEST(HTMLDamage, leavesOffAtTheDeadlineWithWhatItHas) {
    const std::string page = "<title>t</title><p>first</p>" + repeated("<p>a <b>b</b></p>", 200000);
    Deadline deadline{std::chrono::duration<double>(0)};
    while (!deadline.passed()) {
    }
    DocumentContents contents;
    EXPECT_EQ(readHTML(page, deadline, contents), ReadStatus::read);
    EXPECT_LT(contents.text.size(), 1000000u);

    Deadline later{std::chrono::duration<double>(0.02)};
    contents = {};
    EXPECT_EQ(readHTML(page, later, contents), ReadStatus::read);
    EXPECT_EQ(contents.info.title, u"t");
    EXPECT_EQ(contents.text.substr(0, 6), u"first\n");
}

TEST(HTMLDamage, keepsMemoryInProportion) {
    HTMLArena arena(64, 1000);
    std::byte* first = static_cast<std::byte*>(arena.allocate(3));
    std::byte* second = static_cast<std::byte*>(arena.allocate(8));
    EXPECT_EQ(second, first + 8);
    arena.release(second);
    EXPECT_EQ(arena.allocate(16), second); // what was given last is given again
    arena.release(first);
    EXPECT_NE(arena.allocate(8), first);
    EXPECT_NE(arena.allocate(500), nullptr);
    EXPECT_EQ(arena.allocate(500), nullptr);
    EXPECT_NE(arena.allocate(100), nullptr);
    arena.release(nullptr);
}

} // namespace

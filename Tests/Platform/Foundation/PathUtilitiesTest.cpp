// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/UserDatabase.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

NSString s(const std::string& bytes) { return stringWithFileSystemRepresentation(bytes); }

TEST(Paths, LoseTheirExtension) {
    struct {
        const char16_t* path;
        const char* rest;
    } cases[] = {{u"", ""},
                 {u"/", "/"},
                 {u"/a/b/", "/a/b"},
                 {u"a/", "a"},
                 {u"a//b", "a/b"},
                 {u"a.", "a."},
                 {u".hidden", ".hidden"},
                 {u"a.tar.gz", "a.tar"},
                 {u"/a.b/c", "/a.b/c"},
                 {u"x.rtfd/", "x"},
                 {u"notes.old copy", "notes"}};
    for (const auto& c : cases)
        EXPECT_EQ(stringByDeletingPathExtension(c.path).utf8(), c.rest) << NSString(c.path).utf8();
}

TEST(Paths, GainAnExtension) {
    struct {
        const char16_t *path, *extension;
        const char* whole;
    } cases[] = {{u"a", u"txt", "a.txt"},  {u"a/", u"q", "a.q"},  {u"a", u"", "a"},
                 {u"a//b", u"c", "a/b.c"}, {u"", u"x", "nil"},    {u"/", u"x", "nil"},
                 {u"a", u"b/c", "nil"},    {u"a", u"b c", "nil"}, {u"a", u"b.", "nil"}};
    for (const auto& c : cases) {
        const NSString whole = stringByAppendingPathExtension(c.path, c.extension);
        EXPECT_EQ(whole ? whole.utf8() : "nil", c.whole) << NSString(c.path).utf8();
    }
}

TEST(Paths, ComeApartIntoComponents) {
    struct {
        const char16_t* path;
        const char* joined;
    } cases[] = {{u"", ""},         {u"/", "/|"},         {u"//", "/|/|"}, {u"/a/b/", "/|a|b|/|"},
                 {u"a//b", "a|b|"}, {u"/a//b", "/|a|b|"}, {u"a", "a|"},    {u"a/", "a|/|"}};
    for (const auto& c : cases) {
        std::string joined;
        for (const NSObject& component : pathComponents(c.path))
            joined += as<NSString>(component).utf8() + "|";
        EXPECT_EQ(joined, c.joined) << NSString(c.path).utf8();
    }
}

TEST(StandardizingPath, TakesOutWhatSaysNothing) {
    struct {
        const char16_t* path;
        const char* standard;
    } cases[] = {{u"", ""},
                 {u"/", "/"},
                 {u"//", "/"},
                 {u"a/", "a"},
                 {u"./x", "x"},
                 {u".", "."},
                 {u"./", "."},
                 {u"a/.", "a"},
                 {u"/.", "/"},
                 {u"../x", "../x"},
                 {u"a/../x", "a/../x"},
                 {u"/a//b", "/a/b"},
                 {u"/..", "/"},
                 {u"/../a", "/a"},
                 {u"/a/./b/../c", "/a/c"},
                 {u"/a/b/../../..", "/"},
                 {u"/a/...", "/a/..."},
                 {u"./~/x", "./~/x"}};
    for (const auto& c : cases)
        EXPECT_EQ(stringByStandardizingPath(c.path).utf8(), c.standard) << NSString(c.path).utf8();
    EXPECT_FALSE(stringByStandardizingPath(nullptr));
}

TEST(StandardizingPath, KeepsBytesThatAreNoText) {
    EXPECT_EQ(stringByStandardizingPath(s("/a/../\xff/b/")).text(), u"/\xDCFF/b");
    const std::u16string odd(u"/a\0/\xD800/..", 8);
    EXPECT_EQ(stringByStandardizingPath(odd).text(), std::u16string(u"/a\0", 3));
}

TEST(StandardizingPath, FindsHomes) {
    const std::string old = getenv("HOME") ? getenv("HOME") : "";
    setenv("HOME", "/home of/somebody", 1);
    EXPECT_EQ(stringByStandardizingPath(u"~").utf8(), "/home of/somebody");
    EXPECT_EQ(stringByStandardizingPath(u"~/a/../b/").utf8(), "/home of/somebody/b");
    unsetenv("HOME");
    EXPECT_EQ(stringByStandardizingPath(u"~/x").utf8(), userWithID(getuid())->directory + "/x");
    setenv("HOME", old.c_str(), 1);
    EXPECT_EQ(stringByStandardizingPath(u"~root/x").utf8(), "/root/x");
    EXPECT_EQ(stringByStandardizingPath(u"~no such user/x").utf8(), "~no such user/x");
    EXPECT_EQ(stringByStandardizingPath(u"/~/x").utf8(), "/~/x");
}

TEST(StandardizingPath, GoesToTheRealParentOfALink) {
    TemporaryFolder folder;
    ASSERT_EQ(mkdir((folder.path() + "/far").c_str(), 0700), 0);
    ASSERT_EQ(mkdir((folder.path() + "/far/away").c_str(), 0700), 0);
    ASSERT_EQ(symlink("far/away", (folder.path() + "/link").c_str()), 0);
    ASSERT_EQ(symlink("nothing", (folder.path() + "/dangling").c_str()), 0);
    char* real = realpath(folder.path().c_str(), nullptr);
    EXPECT_EQ(stringByStandardizingPath(s(folder.path() + "/link/../x")).utf8(),
              std::string(real) + "/far/x");
    free(real);
    EXPECT_EQ(stringByStandardizingPath(s(folder.path() + "/link/x")).utf8(), folder.path() + "/link/x");
    EXPECT_EQ(stringByStandardizingPath(s(folder.path() + "/dangling/../x")).utf8(), folder.path() + "/x");
}

TEST(UserDatabase, KnowsTheSuperuser) {
    EXPECT_EQ(userWithID(0)->name, "root");
    EXPECT_EQ(userWithName("root")->directory, "/root");
    EXPECT_FALSE(userWithName("no such user"));
    int failure = -1;
    EXPECT_FALSE(userWithID(uid_t(-2) - 77777, &failure));
    EXPECT_NE(failure, -1);
}

} // namespace

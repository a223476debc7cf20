// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class PathsOnDisk : public testing::Test {
protected:
    NSString path(const std::string& name) const {
        return stringWithFileSystemRepresentation(folder.path() + "/" + name);
    }
    void touch(const std::string& name, time_t seconds, long nanoseconds) const {
        writeFile(folder.path() + "/" + name, "");
        const timespec times[2] = {{seconds, 0}, {seconds, nanoseconds}};
        ASSERT_EQ(utimensat(AT_FDCWD, (folder.path() + "/" + name).c_str(), times, 0), 0);
    }
    TemporaryFolder folder;
};

TEST_F(PathsOnDisk, AreDirectoriesThroughLinksAndLinksThemselves) {
    ASSERT_EQ(mkdir((folder.path() + "/directory").c_str(), 0700), 0);
    writeFile(folder.path() + "/file", "");
    ASSERT_EQ(symlink("directory", (folder.path() + "/link").c_str()), 0);
    ASSERT_EQ(symlink("nothing", (folder.path() + "/dangling").c_str()), 0);
    struct {
        const char* name;
        bool exists, isDirectory, isLink;
    } cases[] = {{"directory", true, true, false},
                 {"file", true, false, false},
                 {"link", true, true, true},
                 {"dangling", false, false, true},
                 {"missing", false, false, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(zorPathExists(path(c.name)), c.exists) << c.name;
        EXPECT_EQ(zorDirectoryExists(path(c.name)), c.isDirectory) << c.name;
        EXPECT_EQ(zorSymbolicLinkExists(path(c.name)), c.isLink) << c.name;
    }
}

TEST_F(PathsOnDisk, KeepBytesThatAreNoText) {
    writeFile(folder.path() + "/\xff\xfe", "");
    EXPECT_TRUE(zorFileExists(zorChild(path(""), u"\xDCFF\xDCFE")));
    EXPECT_EQ(zorName(path("\xff\xfe")).text(), u"\xDCFF\xDCFE");
}

TEST_F(PathsOnDisk, AreDatedInWholeSeconds) {
    touch("file", 978307200 + 100, 999999999);
    EXPECT_EQ(zorFileModificationDateInterval(path("file")), 100);
    EXPECT_EQ(zorFileModificationDate(path("file")), NSObject(NSDate(100)));
    touch("old", 978307200 - 100, 999999999);
    EXPECT_EQ(zorFileModificationDateInterval(path("old")), -100);
}

TEST_F(PathsOnDisk, AreDatedToTheReferenceDateWhenMissing) {
    EXPECT_EQ(zorFileModificationDateInterval(path("missing")), 0.0);
    EXPECT_EQ(zorFileModificationDate(path("missing")), NSObject(NSDate(0.0)));
}

TEST_F(PathsOnDisk, AreOrderedByTheirDates) {
    touch("a", 978307200 + 1, 0);
    touch("b", 978307200 + 2, 0);
    touch("c", 978307200 + 2, 500000000);
    touch("older than the reference", 1, 0);
    EXPECT_EQ(zorCompareFileModificationDate(path("a"), path("b")), NSOrderedAscending);
    EXPECT_EQ(zorCompareFileModificationDate(path("b"), path("a")), NSOrderedDescending);
    EXPECT_EQ(zorCompareFileModificationDate(path("b"), path("c")), NSOrderedSame);
    EXPECT_EQ(zorCompareFileModificationDate(path("a"), path("missing")), NSOrderedDescending);
    EXPECT_EQ(zorCompareFileModificationDate(path("older than the reference"), path("missing")),
              NSOrderedAscending);
}

TEST(PathLimits, AreThePlatforms) {
    EXPECT_EQ(NSStringZORPaths::zorMaxFileNameCharacters(), 255u);
    EXPECT_EQ(NSStringZORPaths::zorMaxPathLength(), 1024u);
}

TEST(PathComposition, NamesTheParts) {
    EXPECT_EQ(zorParent(u"/a/b.tar.gz").utf8(), "/a");
    EXPECT_EQ(zorName(u"/a/b.tar.gz").utf8(), "b.tar.gz");
    EXPECT_EQ(zorBasename(u"/a/b.tar.gz").utf8(), "b.tar");
    EXPECT_EQ(zorBasename(u"/a.b/.hidden").utf8(), ".hidden");
    EXPECT_EQ(zorWithExtension(u"/a/b", u"pdf").utf8(), "/a/b.pdf");
    EXPECT_EQ(zorWithExtension(u"/a/b.tar", u"gz").utf8(), "/a/b.tar.gz");
    EXPECT_FALSE(zorWithExtension(u"/", u"pdf"));
}

TEST(PathContainment, GoesByComponents) {
    struct {
        NSString path, other;
        bool contains;
    } cases[] = {{u"/a/b", u"/a/b", true},        {u"/a/b", u"/a/b/c", true},     {u"/a/b", u"/a/bc", false},
                 {u"/a/b", u"/a", false},         {u"/a/b/", u"/a//b/c", true},   {u"/", u"/a", true},
                 {u"/a/b", u"/a/x/../b/c", true}, {u"/a/b", u"/a/b/../c", false}, {u"a", u"a/b", true},
                 {u"/a", u"a/b", false},          {u"/a/b", nullptr, false},      {nullptr, u"/a", false},
                 {u"/a", u"/A/b", false}};
    for (const auto& c : cases) {
        EXPECT_EQ(zorPathContainsPath(c.path, c.other), c.contains) << c.path.utf8() << " " << c.other.utf8();
    }
}

TEST(PathEquality, IsThatOfTheStandardizedPaths) {
    EXPECT_TRUE(zorPathIsEqual(u"/a/b", u"/a/./x/../b/"));
    EXPECT_FALSE(zorPathIsEqual(u"/a/b", u"/a/B"));
    EXPECT_FALSE(zorPathIsEqual(u"/a", nullptr));
    EXPECT_FALSE(zorPathIsEqual(nullptr, nullptr));
}

TEST(FileNames, AreMadeValid) {
    EXPECT_EQ(zorMakeFileNameValid(u"a/b\uFFFC/c").utf8(), "a:b:c");
    EXPECT_EQ(zorMakeFileNameValid(u"\uFFFC").utf8(), "");
    EXPECT_EQ(zorMakeFileNameValid(u"plain").utf8(), "plain");
    EXPECT_FALSE(zorMakeFileNameValid(nullptr));
    EXPECT_EQ(zorMakeFileNameValidForCarbon(u"a:b/c:").utf8(), "a/b/c/");
    EXPECT_FALSE(zorMakeFileNameValidForCarbon(nullptr));
}

TEST(FileNames, AreCutBeforeTheirExtension) {
    EXPECT_EQ(zorMakeFileNameValidWithExtension(u"document", u"pdf", 10).utf8(), "docume.pdf");
    EXPECT_EQ(zorMakeFileNameValidWithExtension(u"document", u"pdf", 12).utf8(), "document.pdf");
    EXPECT_EQ(zorMakeFileNameValidWithExtension(u"document", u"", 4).utf8(), "docu");
    EXPECT_EQ(zorMakeFileNameValidWithExtension(u"document", nullptr, 4).utf8(), "docu");
    EXPECT_EQ(zorMakeFileNameValidWithExtension(u"a/b", u"x/y").utf8(), "a:b.x:y");
    EXPECT_EQ(zorMakeFileNameValidWithExtension(std::u16string(300, u'a'), u"pdf").length(), 255u);
    // No half of a character stays, and what is taken out afterwards is not made up for.
    EXPECT_EQ(zorMakeFileNameValidWithExtension(u"abcd\U0001F600", u"pdf", 9).text(), u"abcd.pdf");
    EXPECT_EQ(zorMakeFileNameValidWithExtension(u"ab\uFFFCde", u"pdf", 8).text(), u"abd.pdf");
}

} // namespace

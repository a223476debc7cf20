// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSFileManager.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURLResourceValues.h"
#include "Platform/Foundation/UserDatabase.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"
#include "ZORFoundation/Source/ZORException.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

NSURL url(const char* text) { return NSURL::URLWithString(NSString::fromUTF8(text)); }
std::string text(const NSURL& url) { return url ? url.absoluteString().utf8() : "nil"; }

class FileURLs : public testing::Test {
protected:
    NSURL at(const std::string& name) const {
        return NSURL::fileURLWithPath(stringWithFileSystemRepresentation(folder.path() + "/" + name));
    }
    void makeDirectory(const std::string& name) const {
        ASSERT_EQ(mkdir((folder.path() + "/" + name).c_str(), 0700), 0) << name;
    }
    TemporaryFolder folder;
};

TEST_F(FileURLs, ExistAsTheirPathsDo) {
    makeDirectory("directory");
    writeFile(folder.path() + "/file", "");
    ASSERT_EQ(symlink("file", (folder.path() + "/link").c_str()), 0);
    ASSERT_EQ(symlink("nothing", (folder.path() + "/dangling").c_str()), 0);
    struct {
        const char* name;
        bool exists, isFile, isDirectory, isLink;
    } cases[] = {{"directory", true, false, true, false},
                 {"file", true, true, false, false},
                 {"link", true, true, false, true},
                 {"dangling", false, false, false, true},
                 {"missing", false, false, false, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(zorPathExists(at(c.name)), c.exists) << c.name;
        EXPECT_EQ(zorFileExists(at(c.name)), c.isFile) << c.name;
        EXPECT_EQ(zorDirectoryExists(at(c.name)), c.isDirectory) << c.name;
        EXPECT_EQ(zorSymbolicLinkExists(at(c.name)), c.isLink) << c.name;
    }
}

TEST_F(FileURLs, ThatNameNoFileDoNotExist) {
    for (const NSURL& none :
         {url("http://h/etc/passwd"), url("file:///etc/passwd%00"), url("mailto:a@b"), NSURL()}) {
        EXPECT_FALSE(zorPathExists(none));
        EXPECT_FALSE(zorFileExists(none));
        EXPECT_FALSE(zorDirectoryExists(none));
        EXPECT_FALSE(zorSymbolicLinkExists(none));
        EXPECT_FALSE(zorPackageExists(none));
        EXPECT_FALSE(zorApplicationExists(none));
        EXPECT_FALSE(zorVolumeExists(none));
    }
}

TEST_F(FileURLs, ArePackagesAndApplications) {
    makeDirectory("a.rtfd");
    makeDirectory("b.app");
    writeFile(folder.path() + "/c.desktop", "");
    writeFile(folder.path() + "/d.txt", "");
    struct {
        const char* name;
        bool isPackage, isApplication;
    } cases[] = {{"a.rtfd", true, false},
                 {"b.app", true, true},
                 {"c.desktop", false, true},
                 {"d.txt", false, false},
                 {"missing.app", false, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(zorPackageExists(at(c.name)), c.isPackage) << c.name;
        EXPECT_EQ(zorApplicationExists(at(c.name)), c.isApplication) << c.name;
    }
}

TEST_F(FileURLs, AreVolumes) {
    EXPECT_TRUE(zorVolumeExists(url("file:///")));
    EXPECT_TRUE(zorVolumeExists(url("file:///proc/")));
    EXPECT_FALSE(zorVolumeExists(url("file:///usr/")));
    EXPECT_TRUE(zorVolumeExists(url("file:///Volumes/no%20such%20disk"))) << "there or not";
    EXPECT_FALSE(zorVolumeExists(url("file:///Volumes/disk/folder")));
    EXPECT_FALSE(zorVolumeExists(url("file:///a/Volumes/disk")));
    EXPECT_FALSE(zorVolumeExists(url("file:///Volumes")));
}

TEST_F(FileURLs, AreComposed) {
    EXPECT_EQ(text(zorChild(url("file:///none/a"), u"b c")), "file:///none/a/b%20c");
    EXPECT_EQ(text(zorParent(url("file:///none/a.tar.gz"))), "file:///none/");
    EXPECT_EQ(zorName(url("file:///none/a%20b.tar.gz")).utf8(), "a b.tar.gz");
    EXPECT_EQ(zorBasename(url("file:///none/a%20b.tar.gz")).utf8(), "a b.tar");
    EXPECT_EQ(text(zorBasenameURL(url("file:///none/a.tar.gz"))), "file:///none/a.tar");
    EXPECT_EQ(zorPathExtension(url("file:///none/a.tar.gz")).utf8(), "gz");
    EXPECT_EQ(text(zorWithExtension(url("file:///none/a"), u"pdf")), "file:///none/a.pdf");
    EXPECT_EQ(text(zorChangeToExtension(url("file:///none/a.txt"), u"pdf")), "file:///none/a.pdf");
    EXPECT_EQ(text(zorChangeToExtension(url("file:///none/a"), u"pdf")), "file:///none/a.pdf");
    EXPECT_TRUE(zorHasExtension(url("file:///a.PDF"), u"pdf"));
    EXPECT_FALSE(zorHasExtension(url("file:///a.pdfx"), u"pdf"));
    EXPECT_FALSE(zorHasExtension(url("file:///a"), nullptr));
}

TEST_F(FileURLs, ContainWhatLiesAtOrBelowThem) {
    EXPECT_TRUE(zorContainsFileURL(url("file:///a/b"), url("file:///a/b/")));
    EXPECT_TRUE(zorContainsFileURL(url("file:///a/b"), url("file:///a/x/../b/c")));
    EXPECT_FALSE(zorContainsFileURL(url("file:///a/b"), url("file:///a/bc")));
    EXPECT_FALSE(zorContainsFileURL(url("file:///a/b"), NSURL()));
    EXPECT_FALSE(zorContainsFileURL(NSURL(), url("file:///a")));
}

TEST_F(FileURLs, AreEqualWhenTheyNameTheSame) {
    EXPECT_TRUE(zorIsEqualToFileURL(url("http://h/a"), url("http://h/a")));
    EXPECT_FALSE(zorIsEqualToFileURL(url("http://h/a"), url("http://h/a/")));
    EXPECT_TRUE(zorIsEqualToFileURL(url("file:///a/b"), url("file:///a/b/")));
    EXPECT_TRUE(zorIsEqualToFileURL(url("file:///a/b"), url("file:///a/c/../b")));
    EXPECT_FALSE(zorIsEqualToFileURL(url("file:///a/b"), url("file:///a/B")));
    EXPECT_FALSE(zorIsEqualToFileURL(url("file:///a/b"), url("file:///c/b")));
    EXPECT_FALSE(zorIsEqualToFileURL(url("file:///a/b"), url("http://h/a/b")));
    EXPECT_FALSE(zorIsEqualToFileURL(url("file:///a"), NSURL()));
    EXPECT_FALSE(zorIsEqualToFileURL(NSURL(), NSURL()));
}

TEST_F(FileURLs, HaveBytesForTheFileSystem) {
    EXPECT_EQ(zorFileSystemRepresentation(url("file:///a%20b/%FF/")).value(), "/a b/\xff");
    EXPECT_FALSE(zorFileSystemRepresentation(url("http://h/a%20b")));
    EXPECT_EQ(zorFileSystemRepresentation(url("http://h/a%20b"), 833.25).value(), "/a b") << "before 10.9";
    EXPECT_FALSE(zorFileSystemRepresentation(url("mailto:a@b"), 833.25));
    char buffer[8];
    EXPECT_TRUE(zorGetFileSystemRepresentation(url("file:///123456"), buffer, sizeof buffer));
    EXPECT_STREQ(buffer, "/123456");
    EXPECT_FALSE(zorGetFileSystemRepresentation(url("file:///1234567"), buffer, sizeof buffer));
    EXPECT_FALSE(zorGetFileSystemRepresentation(url("http://h/a"), buffer, sizeof buffer));
}

TEST_F(FileURLs, ComeFromBytes) {
    using NSURLZORFileBasics::zorURLWithFileSystemRepresentation;
    EXPECT_EQ(text(zorURLWithFileSystemRepresentation("/usr")), "file:///usr");
    EXPECT_EQ(text(zorURLWithFileSystemRepresentation("/a b/\xff")), "file:///a%20b/%FF");
    testing::internal::CaptureStderr();
    EXPECT_THROW(zorURLWithFileSystemRepresentation(nullptr), ZORException);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Precondition Failed: path"), std::string::npos);
}

TEST_F(FileURLs, KnowTheRealHome) {
    const std::string old = getenv("HOME") ? getenv("HOME") : "";
    setenv("HOME", "/elsewhere", 1);
    EXPECT_EQ(fileSystemRepresentation(NSURLZORFileBasics::zorRealHomeDirectoryURL().path()),
              userWithID(getuid())->directory);
    setenv("HOME", old.c_str(), 1);
}

TEST_F(FileURLs, AreShownToPeople) {
    EXPECT_EQ(zorAbsolutePath(url("file:///a/./b/../c/")).utf8(), "/a/c");
    EXPECT_EQ(text(zorStandardizedFileURL(url("file:///a/./b/../c/"))), "file:///a/c/");
    EXPECT_EQ(zorDisplayPath(url("file:///usr/./bin")).text(), u"/ \u2023 usr \u2023 bin");
    EXPECT_EQ(zorDisplayPath(url("file:///none/a%20b")).text(), u"/ \u2023 none \u2023 a b");
    EXPECT_FALSE(zorDisplayPath(url("mailto:a@b")));
    EXPECT_EQ(zorDisplayNameWithExtension(url("file:///a/b:c.txt")).utf8(), "b/c.txt");
    EXPECT_EQ(zorHFSPath(url("file:///none/b:c")).text(), NSString(kRootVolumeName).text() + u":none:b/c");
}

TEST_F(FileURLs, HaveTheNameOfTheItemOrTheirOwn) {
    writeFile(folder.path() + "/\xff.txt", "");
    EXPECT_EQ(zorDisplayName(at("\xff.txt")).text(), u"\xFFFD.txt") << "as the file manager shows it";
    EXPECT_EQ(zorDisplayName(at("missing\xff.txt")).text(), u"missing\xDCFF.txt") << "as it is in the URL";
    EXPECT_EQ(zorDisplayName(url("file:///")).utf8(), NSString(kRootVolumeName).utf8());
}

TEST_F(FileURLs, AnswerForAResourceKey) {
    writeFile(folder.path() + "/file", "12345");
    NSError error;
    EXPECT_EQ(zorResourceValueForKey(at("file"), NSURLFileSizeKey, &error),
              NSObject(NSNumber::withInteger(5)));
    EXPECT_FALSE(error);
}

TEST_F(FileURLs, SayWhichResourceKeyIsNotSupported) {
    NSError error;
    EXPECT_FALSE(zorResourceValueForKey(at(""), NSURLFileSizeKey, &error));
    EXPECT_TRUE(zorHasDomain(error, ZORErrorDomain, 1001));
    EXPECT_EQ(error.userInfo().get<NSString>(NSString(ZORFailingKey)).utf8(), "NSURLFileSizeKey");
    EXPECT_EQ(error.userInfo().get<NSString>(NSString(NSFilePathErrorKey)).utf8(), folder.path());
    EXPECT_EQ(error.userInfo().objectForKey(NSString(ZORStackFrames)),
              NSObject(NSArray{NSString(u"-[NSURL(ZORFileBasics) zorResourceValueForKey:error:] (296)")}));
    EXPECT_FALSE(zorResourceValueForKey(at(""), NSURLFileSizeKey, nullptr));
}

TEST_F(FileURLs, PassThePlatformsErrorOnAsItStands) {
    NSError error, platforms;
    NSObject none;
    EXPECT_FALSE(zorResourceValueForKey(at("missing"), NSURLFileSizeKey, &error));
    EXPECT_FALSE(getResourceValue(at("missing"), none, NSURLFileSizeKey, &platforms));
    EXPECT_EQ(error, NSObject(platforms));
    EXPECT_FALSE(zorResourceValueForKey(at("missing"), NSURLFileSizeKey, nullptr));
}

TEST(NilNameDeathTest, IsReportedThenStopsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_DEATH((void)zorChild(url("file:///a"), nullptr),
                 "NSURL.ZORFileBasics:[0-9]+ -zorChild:: Assertion Failed: Precondition Failed: name");
    EXPECT_DEATH(
        (void)zorChild(url("file:///a"), nullptr),
        "Assertion failed: \\(\\(\\(name\\)\\)\\), function -\\[NSURL\\(ZORFileBasics\\) zorChild:\\], file "
        "ZORFoundation/Source/NSURL.ZORFileBasics, line [0-9]+\\.");
}

} // namespace

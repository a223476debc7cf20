// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLPathUtilities.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

NSURL url(const char* text, const NSURL& base = NSURL()) {
    return NSURL::URLWithString(NSString::fromUTF8(text), base);
}

struct Case {
    const char *text, *expected;
};

TEST(URLPaths, TakeApartDecoded) {
    EXPECT_EQ(lastPathComponent(url("file:///a/b%20c.tar.gz")).utf8(), "b c.tar.gz");
    EXPECT_EQ(lastPathComponent(url("file:///a/b/")).utf8(), "b");
    EXPECT_EQ(lastPathComponent(url("file:///")).utf8(), "/");
    EXPECT_EQ(lastPathComponent(url("http://h/a?q=/b")).utf8(), "a");
    EXPECT_EQ(lastPathComponent(url("c/d", url("http://h/a"))).utf8(), "d");
    EXPECT_FALSE(lastPathComponent(url("mailto:a@b")));
    EXPECT_EQ(pathExtension(url("file:///a/b.tar.gz")).utf8(), "gz");
    EXPECT_EQ(pathExtension(url("file:///a/b%2Egz")).utf8(), "gz");
    EXPECT_EQ(pathExtension(url("file:///a/.bashrc")).utf8(), "");
    EXPECT_EQ(pathExtension(url("file:///a/b.")).utf8(), "");
    EXPECT_FALSE(pathExtension(NSURL()));
}

TEST(URLPaths, AppendAnEscapedComponent) {
    for (const auto& [text, component, expected] : {std::tuple{"http://h/a", "c d", "http://h/a/c%20d"},
                                                    {"http://h/a/", "b", "http://h/a/b"},
                                                    {"http://h/a", "q?x#y%", "http://h/a/q%3Fx%23y%25"},
                                                    {"http://h/a", "", "http://h/a/"},
                                                    {"http://h", "a", "http://h/a"},
                                                    {"http://h/a?q#f", "b/c", "http://h/a/b/c?q#f"},
                                                    {"file:///none", "/x", "file:///none/x"},
                                                    {"file:///none", "\u00e9", "file:///none/%C3%A9"}}) {
        EXPECT_EQ(
            URLByAppendingPathComponent(url(text), NSString::fromUTF8(component)).absoluteString().utf8(),
            expected);
    }
    EXPECT_EQ(URLByAppendingPathComponent(url("file:///none"), u"\xDCFF").absoluteString().utf8(),
              "file:///none/%FF");
    EXPECT_FALSE(URLByAppendingPathComponent(NSURL(), u"x"));
    EXPECT_FALSE(URLByAppendingPathComponent(url("file:///a"), nullptr));
}

TEST(URLPaths, EndInASlashWhereADirectoryIs) {
    EXPECT_EQ(URLByAppendingPathComponent(url("file:///"), u"usr").absoluteString().utf8(), "file:///usr/");
    EXPECT_EQ(URLByAppendingPathComponent(url("http://h/"), u"usr").absoluteString().utf8(), "http://h/usr");
    EXPECT_EQ(URLByAppendingPathComponent(url("file:///etc/"), u"passwd").absoluteString().utf8(),
              "file:///etc/passwd");
}

TEST(URLPaths, DeleteTheLastComponent) {
    for (const Case& c : {Case{"http://h/a/b.txt", "http://h/a/"}, Case{"http://h/a/b/", "http://h/a/"},
                          Case{"http://h/", "http://h/../"}, Case{"file:///a", "file:///"},
                          Case{"http://h/../", "http://h/../../"}, Case{"http://h/a?q", "http://h/?q"}}) {
        EXPECT_EQ(URLByDeletingLastPathComponent(url(c.text)).absoluteString().utf8(), c.expected) << c.text;
    }
    EXPECT_EQ(URLByDeletingLastPathComponent(url("c/d", url("http://h/a"))).absoluteString().utf8(),
              "http://h/c/");
}

TEST(URLPaths, ChangeTheExtensionBeforeTheSlash) {
    for (const Case& c : {Case{"http://h/a.zip/", "http://h/a/"}, Case{"file:///a.tar.gz", "file:///a.tar"},
                          Case{"file:///a%2Egz", "file:///a"}, Case{"file:///.hidden", "file:///.hidden"},
                          Case{"file:///a.", "file:///a."}, Case{"file:///x.old%20copy", "file:///x"}}) {
        EXPECT_EQ(URLByDeletingPathExtension(url(c.text)).absoluteString().utf8(), c.expected) << c.text;
    }
    EXPECT_EQ(URLByAppendingPathExtension(url("http://h/a/"), u"zip").absoluteString().utf8(),
              "http://h/a.zip/");
    EXPECT_EQ(URLByAppendingPathExtension(url("file:///a"), u"b c").absoluteString().utf8(),
              "file:///a.b%20c");
    EXPECT_EQ(URLByAppendingPathExtension(url("file:///a"), u"").absoluteString().utf8(), "file:///a");
    EXPECT_EQ(URLByAppendingPathExtension(url("file:///"), u"x").absoluteString().utf8(), "file:///");
    EXPECT_FALSE(URLByAppendingPathExtension(url("file:///a"), u"b/c"));
}

TEST(URLPaths, AreStandardized) {
    EXPECT_EQ(URLByStandardizingPath(url("file:///none/./b/../c")).absoluteString().utf8(), "file:///none/c");
    EXPECT_EQ(URLByStandardizingPath(url("file:///none/b/")).absoluteString().utf8(), "file:///none/b/");
    EXPECT_EQ(URLByStandardizingPath(url("file:///~/b")).absoluteString().utf8(), "file:///~/b");
    EXPECT_EQ(URLByStandardizingPath(url("http://h/a/../b")).absoluteString().utf8(), "http://h/a/../b");
}

TEST(URLPaths, HaveBytesOnlyWhenTheyNameAFile) {
    EXPECT_EQ(fileSystemRepresentation(url("file:///a%20b/%FF/")).value(), "/a b/\xff");
    EXPECT_FALSE(fileSystemRepresentation(url("http://h/a")));
    EXPECT_FALSE(fileSystemRepresentation(url("file://")));
    EXPECT_FALSE(fileSystemRepresentation(url("file:///a%00b")));
    EXPECT_FALSE(fileSystemRepresentation(NSURL()));
}

TEST(URLPaths, FitABufferWithTheirNul) {
    char buffer[6] = "";
    EXPECT_TRUE(CFURLGetFileSystemRepresentation(url("file:///abcd"), buffer, 6));
    EXPECT_STREQ(buffer, "/abcd");
    EXPECT_FALSE(CFURLGetFileSystemRepresentation(url("file:///abcde"), buffer, 6));
    EXPECT_FALSE(CFURLGetFileSystemRepresentation(url("http://h/a"), buffer, 6));
    EXPECT_TRUE(CFURLGetFileSystemRepresentation(url("d", url("file:///ab/")), buffer, 6));
    EXPECT_STREQ(buffer, "/ab/d");
}

TEST(URLPaths, OfBytesAreMarkedAsAskedFor) {
    auto text = [](const char* bytes, bool isDirectory) {
        return NSURL::fileURLWithFileSystemRepresentation(bytes, isDirectory).absoluteString().utf8();
    };
    EXPECT_EQ(text("/usr", false), "file:///usr");
    EXPECT_EQ(text("/usr/", false), "file:///usr");
    EXPECT_EQ(text("/none", true), "file:///none/");
    EXPECT_EQ(text("/", true), "file:///");
    EXPECT_EQ(text("/\xff b", false), "file:///%FF%20b");
    char directory[4096];
    ASSERT_TRUE(getcwd(directory, sizeof directory));
    EXPECT_EQ(NSURL::fileURLWithFileSystemRepresentation("x", false).path().utf8(),
              std::string(directory) + "/x");
}

} // namespace

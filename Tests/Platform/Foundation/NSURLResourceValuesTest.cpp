// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLResourceValues.h"

#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSFileManager.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class ResourceValues : public testing::Test {
protected:
    void SetUp() override {
        writeFile(folder.path() + "/file.txt", "12345");
        ASSERT_EQ(symlink("nothing", (folder.path() + "/link").c_str()), 0);
    }

    NSURL url(const std::string& name) const {
        return NSURL::fileURLWithPath(stringWithFileSystemRepresentation(folder.path() + "/" + name));
    }

    static NSObject value(const NSURL& url, const char16_t* key) {
        NSObject found = NSString(u"untouched");
        NSError error;
        EXPECT_TRUE(getResourceValue(url, found, key, &error)) << NSString(key).utf8();
        EXPECT_FALSE(error);
        return found;
    }

    TemporaryFolder folder;
};

TEST_F(ResourceValues, TellTheKindsApart) {
    struct {
        NSURL url;
        bool isFile, isDirectory, isLink;
    } cases[] = {{url("file.txt"), true, false, false},
                 {url(""), false, true, false},
                 {url("link"), false, false, true}};
    for (const auto& c : cases) {
        EXPECT_EQ(value(c.url, NSURLIsRegularFileKey), NSObject(NSNumber::withBool(c.isFile)));
        EXPECT_EQ(value(c.url, NSURLIsDirectoryKey), NSObject(NSNumber::withBool(c.isDirectory)));
        EXPECT_EQ(value(c.url, NSURLIsSymbolicLinkKey), NSObject(NSNumber::withBool(c.isLink)));
    }
}

TEST_F(ResourceValues, NameTheItem) {
    EXPECT_EQ(value(url("file.txt"), NSURLNameKey), NSObject(NSString(u"file.txt")));
    EXPECT_EQ(value(url("file.txt"), NSURLLocalizedNameKey), NSObject(NSString(u"file.txt")));
    EXPECT_EQ(value(NSURL::fileURLWithPath(u"/"), NSURLNameKey), NSObject(NSString(u"/")));
    EXPECT_EQ(value(NSURL::fileURLWithPath(u"/"), NSURLLocalizedNameKey),
              NSObject(NSString(kRootVolumeName)));
    writeFile(folder.path() + "/\xff.txt", "");
    EXPECT_EQ(value(url("\xff.txt"), NSURLNameKey), NSObject(NSString(u"\xDCFF.txt")));
    EXPECT_EQ(value(url("\xff.txt"), NSURLLocalizedNameKey), NSObject(NSString(u"\xFFFD.txt")));
}

TEST_F(ResourceValues, MeasureAndDateFiles) {
    EXPECT_EQ(value(url("file.txt"), NSURLFileSizeKey), NSObject(NSNumber::withInteger(5)));
    const timespec times[2] = {{978307200 + 7, 0}, {978307200 + 7, 500000000}};
    ASSERT_EQ(utimensat(AT_FDCWD, (folder.path() + "/file.txt").c_str(), times, 0), 0);
    EXPECT_EQ(value(url("file.txt"), NSURLContentModificationDateKey), NSObject(NSDate(7.5)));
}

TEST_F(ResourceValues, AreNilWhereThereAreNone) {
    EXPECT_FALSE(value(url(""), NSURLFileSizeKey));
    EXPECT_FALSE(value(url("file.txt"), u"NSURLNoSuchKey"));
    NSObject nothing;
    EXPECT_TRUE(getResourceValue(url("file.txt"), nothing, nullptr, nullptr));
}

TEST_F(ResourceValues, OfWhatIsNotThereFail) {
    struct {
        NSURL url;
        int64_t code, underlying;
    } cases[] = {{url("missing"), 260, 2},
                 {url("file.txt/below"), 256, 20},
                 {url(std::string(300, 'n')), 258, 63},
                 {NSURL::URLWithString(u"http://h/file"), 262, 0},
                 {NSURL::URLWithString(u"file:///a%00b"), 258, 0}};
    for (const auto& c : cases) {
        NSError error;
        NSObject untouched = NSString(u"untouched");
        EXPECT_FALSE(getResourceValue(c.url, untouched, NSURLNameKey, &error));
        EXPECT_EQ(untouched, NSObject(NSString(u"untouched")));
        EXPECT_EQ(error.domain(), NSObject(NSString(NSCocoaErrorDomain)));
        EXPECT_EQ(error.code(), c.code) << c.url.description().utf8();
        EXPECT_EQ(error.userInfo().get<NSURL>(NSString(NSURLErrorKey)), NSObject(c.url));
        EXPECT_EQ(error.userInfo().get<NSError>(NSString(NSUnderlyingErrorKey)).code(), c.underlying);
        EXPECT_FALSE(getResourceValue(c.url, untouched, NSURLNameKey, nullptr));
    }
    NSObject nothing;
    EXPECT_FALSE(getResourceValue(NSURL(), nothing, NSURLNameKey, nullptr));
}

TEST_F(ResourceValues, DisplayComponentsAreThePathsOwn) {
    EXPECT_EQ(componentsToDisplayForPath(u"/usr/bin").description().utf8(),
              "(\n    \"/\",\n    usr,\n    bin\n)");
    EXPECT_FALSE(componentsToDisplayForPath(u"/none/at/all"));
    EXPECT_FALSE(componentsToDisplayForPath(NSString(std::u16string(u"/usr\0", 5))));
}

} // namespace

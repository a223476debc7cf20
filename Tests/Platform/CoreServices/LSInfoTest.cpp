// SPDX-License-Identifier: Apache-2.0
#include "Platform/CoreServices/LSInfo.h"

#include "Platform/CoreServices/CFURL.h"
#include "Platform/CoreServices/Volumes.h"
#include "Platform/Foundation/NSFileManager.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class ItemInfo : public testing::Test {
protected:
    NSURL url(const std::string& name) const {
        return NSURL::fileURLWithPath(stringWithFileSystemRepresentation(folder.path() + "/" + name));
    }
    void makeDirectory(const std::string& name) const {
        ASSERT_EQ(mkdir((folder.path() + "/" + name).c_str(), 0700), 0) << name;
    }

    static uint32_t flags(const NSURL& url) {
        LSItemInfoRecord info;
        EXPECT_EQ(LSCopyItemInfoForURL(url, kLSRequestBasicFlagsOnly, &info), noErr)
            << url.description().utf8();
        return info.flags;
    }

    TemporaryFolder folder;
};

TEST_F(ItemInfo, OfPlainFilesAndDirectories) {
    writeFile(folder.path() + "/file", "");
    writeFile(folder.path() + "/file.rtfd", "");
    makeDirectory("directory");
    EXPECT_EQ(flags(url("file")), kLSItemInfoIsPlainFile);
    EXPECT_EQ(flags(url("file.rtfd")), kLSItemInfoIsPlainFile);
    EXPECT_EQ(flags(url("directory")), kLSItemInfoIsContainer);
}

TEST_F(ItemInfo, KnowsPackagesByTheirExtension) {
    for (const char* name : {"a.rtfd", "b.RTFD", "c.bundle", "d.pages", "e.kext"}) {
        makeDirectory(name);
        EXPECT_EQ(flags(url(name)), kLSItemInfoIsContainer | kLSItemInfoIsPackage) << name;
    }
    makeDirectory("f.txt");
    EXPECT_EQ(flags(url("f.txt")), kLSItemInfoIsContainer);
}

TEST_F(ItemInfo, KnowsPackagesByTheirContents) {
    makeDirectory("package");
    makeDirectory("package/Contents");
    makeDirectory("folder");
    writeFile(folder.path() + "/folder/Contents", "a file of that name does not make one");
    EXPECT_EQ(flags(url("package")), kLSItemInfoIsContainer | kLSItemInfoIsPackage);
    EXPECT_EQ(flags(url("folder")), kLSItemInfoIsContainer);
}

TEST_F(ItemInfo, KnowsApplications) {
    makeDirectory("a.app");
    EXPECT_EQ(flags(url("a.app")), kLSItemInfoIsContainer | kLSItemInfoIsPackage | kLSItemInfoIsApplication);
    for (const char* name : {"b.desktop", "c.AppImage"}) {
        writeFile(folder.path() + "/" + name, "");
        EXPECT_EQ(flags(url(name)), kLSItemInfoIsPlainFile | kLSItemInfoIsApplication) << name;
    }
    makeDirectory("d.desktop");
    EXPECT_EQ(flags(url("d.desktop")), kLSItemInfoIsContainer);
    writeFile(folder.path() + "/e.app", "");
    EXPECT_EQ(flags(url("e.app")), kLSItemInfoIsPlainFile);
}

TEST_F(ItemInfo, LooksAtTheLinkItself) {
    makeDirectory("a.app");
    ASSERT_EQ(symlink("a.app", (folder.path() + "/b.app").c_str()), 0);
    EXPECT_EQ(flags(url("b.app")), kLSItemInfoIsSymlink | kLSItemInfoIsAliasFile);
}

TEST_F(ItemInfo, KnowsVolumes) {
    EXPECT_EQ(flags(NSURL::fileURLWithPath(u"/")), kLSItemInfoIsContainer | kLSItemInfoIsVolume);
    EXPECT_EQ(flags(NSURL::fileURLWithPath(u"/proc")), kLSItemInfoIsContainer | kLSItemInfoIsVolume);
    EXPECT_EQ(flags(NSURL::fileURLWithPath(u"/proc/self/task")), kLSItemInfoIsContainer);
    EXPECT_FALSE(isVolume("/none/at/all"));
    EXPECT_FALSE(isVolume("/proc/version"));
}

TEST_F(ItemInfo, FailsWithAStatus) {
    LSItemInfoRecord info;
    info.flags = 0xBAD;
    EXPECT_EQ(LSCopyItemInfoForURL(url("missing"), kLSRequestBasicFlagsOnly, &info), fnfErr);
    EXPECT_EQ(LSCopyItemInfoForURL(NSURL::URLWithString(u"http://h/"), kLSRequestBasicFlagsOnly, &info),
              paramErr);
    EXPECT_EQ(LSCopyItemInfoForURL(NSURL(), kLSRequestBasicFlagsOnly, &info), paramErr);
    EXPECT_EQ(LSCopyItemInfoForURL(url(""), 1, &info), paramErr);
    EXPECT_EQ(LSCopyItemInfoForURL(url(std::string(300, 'n')), kLSRequestBasicFlagsOnly, &info),
              kLSUnknownErr);
    EXPECT_EQ(info.flags, 0xBADu);
}

TEST(HFSPath, JoinsTheVolumeAndTheComponents) {
    auto path = [](const char16_t* text) {
        return CFURLCopyFileSystemPath(NSURL::fileURLWithPath(text), kCFURLHFSPathStyle).utf8();
    };
    const std::string root = NSString(kRootVolumeName).utf8();
    EXPECT_EQ(path(u"/"), root);
    EXPECT_EQ(path(u"/none/a b/c:d"), root + ":none:a b:c/d");
    EXPECT_EQ(path(u"/proc/none/x"), "proc:none:x");
    EXPECT_EQ(path(u"/proc"), "proc");
}

TEST(HFSPath, IsThatOfAFile) {
    EXPECT_FALSE(CFURLCopyFileSystemPath(NSURL::URLWithString(u"http://h/a"), kCFURLHFSPathStyle));
    EXPECT_EQ(CFURLCopyFileSystemPath(NSURL::URLWithString(u"file:///a/b/"), kCFURLPOSIXPathStyle).utf8(),
              "/a/b");
}

} // namespace

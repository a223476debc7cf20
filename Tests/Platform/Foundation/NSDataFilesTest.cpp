// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSURL.h"
#include "Tests/Support/TemporaryFolder.h"

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class DataFiles : public testing::Test {
protected:
    NSString path(const std::string& name) {
        return stringWithFileSystemRepresentation(folder.path() + "/" + name);
    }
    std::string file(const std::string& name) { return folder.path() + "/" + name; }

    TemporaryFolder folder;
    NSError error;
};

int64_t underlyingCode(const NSError& error) {
    return error.userInfo().get<NSError>(NSString(NSUnderlyingErrorKey)).code();
}

TEST_F(DataFiles, ReadTheWholeFile) {
    std::string bytes(300'000, '\0');
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = char(i * 7);
    writeFile(file("a"), bytes);
    EXPECT_EQ(NSData::dataWithContentsOfFile(path("a"), NSDataReadingUncached, &error).bytes(), bytes);
    EXPECT_FALSE(error);
}

TEST_F(DataFiles, ReadFilesThatDoNotTellTheirSize) {
    NSData data = NSData::dataWithContentsOfFile(u"/proc/self/status", 0, &error);
    EXPECT_NE(data.bytes().find("Uid:"), std::string_view::npos);
}

TEST_F(DataFiles, ReadAnEmptyFileAsEmptyData) {
    writeFile(file("a"), "");
    NSData data = NSData::dataWithContentsOfFile(path("a"), 0, &error);
    EXPECT_TRUE(data);
    EXPECT_EQ(data.length(), 0u);
}

TEST_F(DataFiles, AMissingFileIs260Over2) {
    EXPECT_FALSE(NSData::dataWithContentsOfFile(path("a"), 0, &error));
    EXPECT_EQ(error.code(), 260);
    EXPECT_EQ(underlyingCode(error), 2);
    EXPECT_EQ(error.userInfo().get<NSString>(NSString(NSFilePathErrorKey)), path("a"));
}

TEST_F(DataFiles, AFolderIs256Over21) {
    EXPECT_FALSE(NSData::dataWithContentsOfFile(path(""), 0, &error));
    EXPECT_EQ(error.code(), 256);
    EXPECT_EQ(underlyingCode(error), 21);
}

TEST_F(DataFiles, APipeIs256AndDoesNotBlock) {
    ASSERT_EQ(mkfifo(file("p").c_str(), 0600), 0);
    EXPECT_FALSE(NSData::dataWithContentsOfFile(path("p"), 0, &error));
    EXPECT_EQ(error.code(), 256);
}

TEST_F(DataFiles, AFileThatCannotBeReadTellsWhy) {
    EXPECT_FALSE(NSData::dataWithContentsOfFile(u"/proc/self/mem", 0, &error));
    EXPECT_EQ(error.code(), 256);
    EXPECT_EQ(underlyingCode(error), 5);
}

#ifndef TEXTTOOL_SANITIZED // whose allocator ends the process instead of throwing
TEST_F(DataFiles, AFileLargerThanMemoryIs256Over12) {
    writeFile(file("huge"), "");
    ASSERT_EQ(truncate(file("huge").c_str(), off_t(1) << 43), 0);
    EXPECT_FALSE(NSData::dataWithContentsOfFile(path("huge"), 0, &error));
    EXPECT_EQ(error.code(), 256);
    EXPECT_EQ(underlyingCode(error), 12);
}
#endif

TEST_F(DataFiles, WritingThroughALoopOfLinksIs512Over62) {
    fs::create_symlink("b", file("a"));
    fs::create_symlink("a", file("b"));
    EXPECT_FALSE(NSData("x").writeToFile(path("a"), NSDataWritingAtomic, &error));
    EXPECT_EQ(error.code(), 512);
    EXPECT_EQ(underlyingCode(error), 62);
    EXPECT_TRUE(fs::is_symlink(file("a")));
}

TEST_F(DataFiles, ADeviceIsWrittenInPlace) {
    fs::create_symlink("/dev/null", file("null"));
    EXPECT_TRUE(NSData("x").writeToFile(path("null"), NSDataWritingAtomic, &error));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(DataFiles, AnErrorOutParameterMayBeNull) {
    EXPECT_FALSE(NSData::dataWithContentsOfFile(path("a"), 0, nullptr));
    EXPECT_FALSE(NSData("x").writeToFile(path("no/a"), NSDataWritingAtomic, nullptr));
}

TEST_F(DataFiles, AtomicWritingReplacesTheFileAndKeepsItsPermissions) {
    writeFile(file("a"), "old");
    ASSERT_EQ(chmod(file("a").c_str(), 0640), 0);
    EXPECT_TRUE(NSData("new").writeToFile(path("a"), NSDataWritingAtomic, &error));
    EXPECT_EQ(readFile(file("a")), "new");
    struct stat info {};
    stat(file("a").c_str(), &info);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 1);
}

TEST_F(DataFiles, WritingNeverTouchesTheMaskOfTheProcess) {
    const mode_t mask = umask(077);
    std::atomic<bool> done{false};
    std::atomic<int> openToOthers{0};
    std::thread other([&] {
        for (int i = 0; !done; ++i) {
            const std::string name = file("other");
            const int fd = open(name.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0666);
            struct stat info {};
            if (fstat(fd, &info) == 0 && (info.st_mode & 077) != 0) ++openToOthers;
            close(fd);
            unlink(name.c_str());
        }
    });
    for (int i = 0; i < 3000; ++i) {
        unlink(file("a").c_str());
        EXPECT_TRUE(NSData("x").writeToFile(path("a"), NSDataWritingAtomic, &error));
    }
    done = true;
    other.join();
    umask(mask);
    EXPECT_EQ(openToOthers, 0);
}

TEST_F(DataFiles, ANewFileFollowsTheMask) {
    mode_t mask = umask(027);
    EXPECT_TRUE(NSData("x").writeToFile(path("a"), NSDataWritingAtomic, &error));
    umask(mask);
    struct stat info {};
    stat(file("a").c_str(), &info);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST_F(DataFiles, AtomicWritingFollowsLinks) {
    writeFile(file("a"), "old");
    fs::create_symlink("a", file("link"));
    EXPECT_TRUE(NSData("new").writeToFile(path("link"), NSDataWritingAtomic, &error));
    EXPECT_TRUE(fs::is_symlink(file("link")));
    EXPECT_EQ(readFile(file("a")), "new");
}

TEST_F(DataFiles, WritingIntoAMissingFolderIs4Over2) {
    EXPECT_FALSE(NSData("x").writeToFile(path("no/a"), NSDataWritingAtomic, &error));
    EXPECT_EQ(error.code(), 4);
    EXPECT_EQ(underlyingCode(error), 2);
}

TEST_F(DataFiles, WritingOverAFolderIs512) {
    fs::create_directory(file("d"));
    EXPECT_FALSE(NSData("x").writeToFile(path("d"), NSDataWritingAtomic, &error));
    EXPECT_EQ(error.code(), 512);
    EXPECT_EQ(underlyingCode(error), 21);
}

TEST_F(DataFiles, WithoutOverwritingAnExistingFileIs516Over17) {
    writeFile(file("a"), "old");
    EXPECT_FALSE(NSData("x").writeToFile(path("a"), NSDataWritingWithoutOverwriting, &error));
    EXPECT_EQ(error.code(), 516);
    EXPECT_EQ(underlyingCode(error), 17);
    EXPECT_EQ(readFile(file("a")), "old");
}

TEST_F(DataFiles, PathsWithBytesThatAreNotUTF8NameTheirFile) {
    writeFile(file("\xff\xfe\x80"), "odd");
    EXPECT_EQ(NSData::dataWithContentsOfFile(path("\xff\xfe\x80"), 0, &error).bytes(), "odd");
}

TEST_F(DataFiles, AreReadAndWrittenByURL) {
    const NSURL url = NSURL::fileURLWithPath(path("a b"));
    EXPECT_TRUE(NSData(std::string("bytes")).writeToURL(url, NSDataWritingAtomic, &error));
    EXPECT_EQ(NSData::dataWithContentsOfURL(url, 0, &error).bytes(), "bytes");
    EXPECT_FALSE(error);
}

TEST_F(DataFiles, OfURLsThatNameNoFileFail) {
    struct {
        NSURL url;
        int64_t reading, writing;
    } cases[] = {{NSURL::URLWithString(u"http://h/a"), 262, 518},
                 {NSURL::URLWithString(u"file:///a%00"), 258, 514},
                 {NSURL(), 262, 518}};
    for (const auto& c : cases) {
        EXPECT_FALSE(NSData::dataWithContentsOfURL(c.url, 0, &error));
        EXPECT_EQ(error.code(), c.reading);
        EXPECT_EQ(error.userInfo().get<NSURL>(NSString(NSURLErrorKey)), NSObject(c.url));
        EXPECT_FALSE(NSData(std::string("x")).writeToURL(c.url, 0, &error));
        EXPECT_EQ(error.code(), c.writing);
        EXPECT_FALSE(NSData::dataWithContentsOfURL(c.url, 0, nullptr));
    }
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/FileControl.h"

#include "Platform/Foundation/FileDescriptor.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string pathOf(int descriptor) {
    char buffer[kPathBufferSize];
    return fileControl(descriptor, F_GETPATH, buffer) == 0 ? buffer : "errno " + std::to_string(errno);
}

TEST(PathOfADescriptor, IsThatOfItsFile) {
    TemporaryFolder folder;
    writeFile(folder.path() + "/\xff name", "");
    char* real = realpath(folder.path().c_str(), nullptr);
    EXPECT_EQ(pathOf(FileDescriptor(open((folder.path() + "/\xff name").c_str(), O_RDONLY)).get()),
              std::string(real) + "/\xff name");
    EXPECT_EQ(pathOf(FileDescriptor(open(folder.path().c_str(), O_RDONLY)).get()), real);
    free(real);
}

TEST(PathOfADescriptor, IsNoneWithoutAFile) {
    int pipes[2];
    ASSERT_EQ(pipe(pipes), 0);
    const FileDescriptor reading(pipes[0]), writing(pipes[1]);
    EXPECT_EQ(pathOf(reading.get()), "errno " + std::to_string(EBADF));
    EXPECT_EQ(pathOf(-1), "errno " + std::to_string(EBADF));
    EXPECT_EQ(fileControl(reading.get(), F_GETPATH, nullptr), -1);
    EXPECT_EQ(errno, EFAULT);
}

TEST(PathOfADescriptor, IsNoneOfARemovedFile) {
    TemporaryFolder folder;
    writeFile(folder.path() + "/file", "");
    const FileDescriptor fd(open((folder.path() + "/file").c_str(), O_RDONLY));
    unlink((folder.path() + "/file").c_str());
    EXPECT_EQ(pathOf(fd.get()), "errno " + std::to_string(ENOENT));
}

TEST(PathOfADescriptor, IsNoneOfARemovedNameThoughTheFileHasAnother) {
    TemporaryFolder folder;
    const std::string name = folder.path() + "/a", other = folder.path() + "/b";
    writeFile(name, "");
    const FileDescriptor fd(open(name.c_str(), O_RDONLY));
    ASSERT_EQ(link(name.c_str(), other.c_str()), 0);
    unlink(name.c_str());
    EXPECT_EQ(pathOf(fd.get()), "errno " + std::to_string(ENOENT));
    writeFile(name, ""); // another file of the name
    EXPECT_EQ(pathOf(fd.get()), "errno " + std::to_string(ENOENT));
}

TEST(PathOfADescriptor, HasALimitedLength) {
    TemporaryFolder folder;
    std::string path = folder.path();
    while (path.size() + 200 < kPathBufferSize - 1) {
        path += "/" + std::string(199, 'd');
        ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    }
    char* real = realpath(path.c_str(), nullptr);
    const size_t room = kPathBufferSize - 1 - std::string(real).size();
    free(real);
    const std::string longest = path + "/" + std::string(room - 1, 'f'), tooLong = longest + "f";
    writeFile(longest, "");
    writeFile(tooLong, "");
    EXPECT_EQ(pathOf(FileDescriptor(open(longest.c_str(), O_RDONLY)).get()).size(), kPathBufferSize - 1);
    EXPECT_EQ(pathOf(FileDescriptor(open(tooLong.c_str(), O_RDONLY)).get()),
              "errno " + std::to_string(ENAMETOOLONG));
}

TEST(FileControl, PassesOtherCommandsOn) {
    const FileDescriptor fd(open("/dev/null", O_RDWR));
    EXPECT_EQ(fileControl(fd.get(), F_GETFL, nullptr) & O_ACCMODE, O_RDWR);
    EXPECT_EQ(fileControl(-1, F_GETFL, nullptr), -1);
    EXPECT_EQ(errno, EBADF);
}

} // namespace

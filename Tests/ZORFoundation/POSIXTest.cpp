// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/FileControl.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/ZORFoundation/PermissionInformation.h"
#include "ZORFoundation/Source/ZORException.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>
#include <vector>

namespace {

const NSURL kURL = NSURL::URLWithString(u"file:///none");

std::string firstFrame(const NSError& error) {
    const NSArray frames = error.userInfo().get<NSArray>(NSString(ZORStackFrames));
    return frames.count() == 1 ? as<NSString>(frames.objectAtIndex(0)).utf8() : "not one frame";
}

NSObject entry(const NSError& error, const char16_t* key) {
    return error.userInfo().objectForKey(NSString(key));
}

// A failed call's error: the POSIX domain, the code, the function, the frame.
void expectError(const NSError& error, int64_t code, const char* function, const char* frame) {
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, code)) << error.description().utf8();
    EXPECT_EQ(as<NSString>(entry(error, ZORCodeString)).utf8(), function);
    EXPECT_EQ(firstFrame(error), frame);
}

// The error of a null argument.
void expectMissing(const NSError& error, const char* argument, const char* frame) {
    EXPECT_TRUE(zorHasDomain(error, ZORErrorDomain, ZORRequirementFailedError));
    EXPECT_EQ(as<NSString>(entry(error, ZORFailingObject)).utf8(), argument);
    EXPECT_EQ(firstFrame(error), frame);
}

class POSIX : public testing::Test {
protected:
    void SetUp() override { writeFile(file, "text"); }
    TemporaryFolder folder;
    std::string file = folder.path() + "/file", missing = folder.path() + "/missing";
    NSError error;
};

// What the wrappers do. -------------------------------------------------------------------------------------

TEST_F(POSIX, WrappersDoWhatTheirCallsDo) {
    EXPECT_TRUE(ZORPOSIX::checkURL(kURL, S_IFREG, &error));
    EXPECT_TRUE(ZORPOSIX::checkURL(kURL, S_IFREG | 0644, &error));
    struct stat info {};
    EXPECT_TRUE(ZORPOSIX::chmodPath(file.c_str(), 0600, &error));
    EXPECT_TRUE(ZORPOSIX::statPath(file.c_str(), &info, &error));
    EXPECT_EQ(info.st_mode, mode_t(S_IFREG | 0600));
    struct statfs system {};
    EXPECT_TRUE(ZORPOSIX::statfsPath(file.c_str(), &system, &error));
    EXPECT_GT(system.f_bsize, 0);
    int fd = -1;
    EXPECT_TRUE(ZORPOSIX::openPath(file.c_str(), O_RDONLY, &fd, &error));
    EXPECT_TRUE(ZORPOSIX::fcntlDescriptor(fd, F_SETFD, FD_CLOEXEC, &error));
    EXPECT_EQ(fcntl(fd, F_GETFD), FD_CLOEXEC);
    struct flock lock {};
    lock.l_type = F_RDLCK;
    EXPECT_TRUE(ZORPOSIX::fcntlDescriptor(fd, F_SETLK, &lock, &error));
    EXPECT_TRUE(ZORPOSIX::closeDescriptor(fd, &error));
    EXPECT_EQ(fcntl(fd, F_GETFD), -1);
    EXPECT_FALSE(error);
}

TEST_F(POSIX, StatFollowsLinks) {
    ASSERT_EQ(symlink("file", (folder.path() + "/link").c_str()), 0);
    struct stat info {};
    EXPECT_TRUE(ZORPOSIX::statPath((folder.path() + "/link").c_str(), &info, &error));
    EXPECT_TRUE(S_ISREG(info.st_mode));
}

TEST_F(POSIX, FindsThePathOfADescriptor) {
    const FileDescriptor fd(open(file.c_str(), O_RDONLY));
    char* real = realpath(file.c_str(), nullptr);
    EXPECT_EQ(ZORPOSIX::fcntlPathFromDescriptor(fd.get(), &error).utf8(), real);
    char buffer[kPathBufferSize];
    EXPECT_TRUE(ZORPOSIX::fcntlDescriptor(fd.get(), F_GETPATH, buffer, &error));
    EXPECT_STREQ(buffer, real);
    free(real);
    writeFile(folder.path() + "/\xff", "");
    const FileDescriptor odd(open((folder.path() + "/\xff").c_str(), O_RDONLY));
    EXPECT_EQ(lastPathComponent(ZORPOSIX::fcntlPathFromDescriptor(odd.get(), &error)).text(), u"\xDCFF");
    EXPECT_FALSE(error);
}

TEST_F(POSIX, KnowsUsersByTheirIdentifier) {
    EXPECT_EQ(ZORPOSIX::getpwuidNameFromUID(0, &error).utf8(), "root");
    EXPECT_FALSE(error);
}

// Null arguments. -------------------------------------------------------------------------------------------

TEST_F(POSIX, NullArgumentsAreNamedInTheirOrder) {
    int fd = 7;
    struct stat info {};
    struct statfs system {};
    EXPECT_FALSE(ZORPOSIX::chmodPath(nullptr, 0644, &error));
    expectMissing(error, "path", "+[ZORPOSIX chmodPath:mode:error:] (40)");
    EXPECT_FALSE(ZORPOSIX::openPath(nullptr, O_RDONLY, nullptr, &error));
    expectMissing(error, "path", "+[ZORPOSIX openPath:oflag:fd:error:] (57)");
    EXPECT_FALSE(ZORPOSIX::openPath(nullptr, O_RDONLY, &fd, &error));
    EXPECT_EQ(fd, 7);
    EXPECT_FALSE(ZORPOSIX::openPath("/", O_RDONLY, nullptr, &error));
    expectMissing(error, "fd", "+[ZORPOSIX openPath:oflag:fd:error:] (58)");
    EXPECT_FALSE(ZORPOSIX::statfsPath(nullptr, &system, &error));
    expectMissing(error, "path", "+[ZORPOSIX statfsPath:statfsbuf:error:] (184)");
    EXPECT_FALSE(ZORPOSIX::statfsPath("/", nullptr, &error));
    expectMissing(error, "statfsbuf", "+[ZORPOSIX statfsPath:statfsbuf:error:] (185)");
    EXPECT_FALSE(ZORPOSIX::statPath(nullptr, &info, &error));
    expectMissing(error, "path", "+[ZORPOSIX statPath:statbuf:error:] (194)");
    EXPECT_FALSE(ZORPOSIX::statPath("/", nullptr, &error));
    expectMissing(error, "statbuf", "+[ZORPOSIX statPath:statbuf:error:] (195)");
}

// Failures. -------------------------------------------------------------------------------------------------

TEST_F(POSIX, WithoutASlotFailuresAreSilent) {
    int fd = 7;
    struct stat info {};
    struct statfs system {};
    EXPECT_FALSE(ZORPOSIX::checkURL(kURL, S_IFDIR, nullptr));
    EXPECT_FALSE(ZORPOSIX::chmodPath(missing.c_str(), 0644, nullptr));
    EXPECT_FALSE(ZORPOSIX::chmodPath(nullptr, 0644, nullptr));
    EXPECT_FALSE(ZORPOSIX::closeDescriptor(-1, nullptr));
    EXPECT_FALSE(ZORPOSIX::openPath(missing.c_str(), O_RDONLY, &fd, nullptr));
    EXPECT_EQ(fd, -1);
    EXPECT_FALSE(ZORPOSIX::fcntlDescriptor(-1, F_GETFD, 0, nullptr));
    EXPECT_FALSE(ZORPOSIX::fcntlDescriptor(-1, F_GETLK, nullptr, nullptr));
    EXPECT_FALSE(ZORPOSIX::fcntlPathFromDescriptor(-1, nullptr));
    EXPECT_FALSE(ZORPOSIX::getpwuidNameFromUID(uid_t(-2) - 77777, nullptr));
    EXPECT_FALSE(ZORPOSIX::statfsPath(missing.c_str(), &system, nullptr));
    EXPECT_FALSE(ZORPOSIX::statPath(missing.c_str(), &info, nullptr));
}

TEST_F(POSIX, OtherThanRegularFilesAreCorrupt) {
    for (mode_t mode :
         {mode_t(S_IFDIR), mode_t(S_IFLNK | 0777), mode_t(S_IFIFO), mode_t(S_IFSOCK), mode_t(0)}) {
        EXPECT_FALSE(ZORPOSIX::checkURL(kURL, mode, &error));
        EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 259));
        EXPECT_EQ(error.userInfo().count(), 1u);
        EXPECT_EQ(firstFrame(error), "+[ZORPOSIX checkURL:modeIsReg:error:] (36)");
    }
}

TEST_F(POSIX, DescriptorsWithoutAFileGiveTheBasicError) {
    EXPECT_FALSE(ZORPOSIX::closeDescriptor(-1, &error));
    expectError(error, 9, "close", "+[ZORPOSIX closeDescriptor:error:] (50)");
    EXPECT_EQ(error.userInfo().count(), 2u);
    EXPECT_FALSE(ZORPOSIX::fcntlDescriptor(-1, F_GETFD, 0, &error));
    expectError(error, 9, "fcntl", "+[ZORPOSIX fcntlDescriptor:command:value:error:] (71)");
    EXPECT_FALSE(ZORPOSIX::fcntlDescriptor(-1, F_GETLK, nullptr, &error));
    expectError(error, 9, "fcntl", "+[ZORPOSIX fcntlDescriptor:command:buffer:error:] (80)");
    EXPECT_FALSE(ZORPOSIX::fcntlPathFromDescriptor(-1, &error));
    expectError(error, 9, "fcntl", "+[ZORPOSIX fcntlPathFromDescriptor:error:] (87)");
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSNumber::withInt(-1)));
}

TEST_F(POSIX, AnUnknownUserIsTheFailingObject) {
    const uid_t unknown = uid_t(-2) - 77777;
    EXPECT_FALSE(ZORPOSIX::getpwuidNameFromUID(unknown, &error));
    EXPECT_EQ(firstFrame(error), "+[ZORPOSIX getpwuidNameFromUID:error:] (94)");
    EXPECT_EQ(as<NSString>(entry(error, ZORCodeString)).utf8(), "getpwuid");
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSNumber::withUnsignedInteger(unknown)));
}

TEST_F(POSIX, FailuresAboutAPathRaiseForTheMissingOperation) {
    int fd = 7;
    struct stat info {};
    struct statfs system {};
    const std::vector<std::function<bool()>> calls = {
        [&] { return ZORPOSIX::chmodPath(missing.c_str(), 0644, &error); },
        [&] { return ZORPOSIX::openPath(missing.c_str(), O_RDONLY, &fd, &error); },
        [&] { return ZORPOSIX::statfsPath(missing.c_str(), &system, &error); },
        [&] { return ZORPOSIX::statPath(missing.c_str(), &info, &error); },
        [&] { return ZORPOSIX::statPath("", &info, &error); },
        [&] {
            const FileDescriptor open(::open(file.c_str(), O_RDONLY));
            return ZORPOSIX::fcntlDescriptor(open.get(), -1, 0, &error);
        }};
    for (size_t i = 0; i < calls.size(); ++i) {
        try {
            calls[i]();
            ADD_FAILURE() << "call " << i << " returned";
        } catch (const NSException& exception) {
            EXPECT_EQ(exception.name().utf8(), "NSInvalidArgumentException");
            EXPECT_TRUE(
                exception.reason().utf8().starts_with("-[NSURL zorErrorByAddingPermissionInfoToError:]: "
                                                      "unrecognized selector sent to instance 0x"));
        }
    }
    EXPECT_EQ(fd, -1) << "stored before the error is made";
    EXPECT_FALSE(error);
}

TEST_F(POSIX, FailuresAboutAPathHaveThePermissionsThatTheHostAdds) {
    const SuppliedPermissionInformation supplied;
    int fd = 7;
    struct stat info {};
    struct statfs system {};
    const NSObject url = NSURL::fileURLWithFileSystemRepresentation(missing, false);
    EXPECT_FALSE(ZORPOSIX::openPath(missing.c_str(), O_RDONLY, &fd, &error));
    expectError(error, 2, "stat", "+[ZORPOSIX openPath:oflag:fd:error:] (62)");
    EXPECT_EQ(entry(error, u"Permissions"), url);
    EXPECT_EQ(error.userInfo().count(), 3u);
    EXPECT_FALSE(ZORPOSIX::chmodPath(missing.c_str(), 0644, &error));
    expectError(error, 2, "chmod", "+[ZORPOSIX chmodPath:mode:error:] (44)");
    EXPECT_EQ(as<NSString>(entry(error, ZORFailingObject)).utf8(), "644");
    EXPECT_EQ(entry(error, u"Permissions"), url);
    EXPECT_FALSE(ZORPOSIX::statfsPath(missing.c_str(), &system, &error));
    expectError(error, 2, "statfs", "+[ZORPOSIX statfsPath:statfsbuf:error:] (188)");
    EXPECT_FALSE(ZORPOSIX::statPath(missing.c_str(), &info, &error));
    expectError(error, 2, "stat", "+[ZORPOSIX statPath:statbuf:error:] (198)");
    EXPECT_FALSE(ZORPOSIX::checkURL(kURL, S_IFDIR, &error));
    EXPECT_EQ(entry(error, u"Permissions"), NSObject(kURL));
    const FileDescriptor open(::open(file.c_str(), O_RDONLY));
    EXPECT_FALSE(ZORPOSIX::fcntlDescriptor(open.get(), -1, 0, &error));
    expectError(error, 22, "fcntl", "+[ZORPOSIX fcntlDescriptor:command:value:error:] (71)");
    EXPECT_EQ(as<NSURL>(entry(error, u"Permissions")).path().utf8(),
              ZORPOSIX::fcntlPathFromDescriptor(open.get(), nullptr).utf8());
}

TEST_F(POSIX, CodesAreThePlatforms) {
    const SuppliedPermissionInformation supplied;
    struct stat info {};
    EXPECT_FALSE(ZORPOSIX::statPath((folder.path() + "/" + std::string(300, 'n')).c_str(), &info, &error));
    EXPECT_EQ(error.code(), 63);
    ASSERT_EQ(symlink("loop", (folder.path() + "/loop").c_str()), 0);
    EXPECT_FALSE(ZORPOSIX::statPath((folder.path() + "/loop").c_str(), &info, &error));
    EXPECT_EQ(error.code(), 62);
    EXPECT_EQ(error.localizedFailureReason().utf8(), "Too many levels of symbolic links");
}

// The builders on their own. --------------------------------------------------------------------------------

TEST(POSIXErrors, NameTheFunctionAndTheObject) {
    NSError error = ZORPOSIX::errorForFunctionCodeFailingObject(u"f", 13, NSString(u"object"));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 13));
    EXPECT_EQ(as<NSString>(entry(error, ZORCodeString)).utf8(), "f");
    EXPECT_EQ(as<NSString>(entry(error, ZORFailingObject)).utf8(), "object");
    error = ZORPOSIX::errorForFunctionCodeFailingObject(nullptr, 13, nullptr);
    EXPECT_EQ(entry(error, ZORCodeString), NSObject(NSString(u"")));
    EXPECT_TRUE(is<NSNull>(entry(error, ZORFailingObject)));
    error = ZORPOSIX::errorForFunctionCodeDescriptor(u"f", 5, -1);
    EXPECT_EQ(error.userInfo().count(), 1u);
}

TEST(POSIXErrors, AboutAPathAskItsURL) {
    EXPECT_THROW(ZORPOSIX::errorForFunctionCodePath(u"f", 2, "/none"), NSException);
    EXPECT_THROW(ZORPOSIX::errorForFunctionDomainCodePath(u"f", u"D", 2, "/none"), NSException);
    const SuppliedPermissionInformation supplied;
    NSError error = ZORPOSIX::errorForFunctionCodePath(u"f", 2, "/none");
    EXPECT_EQ(entry(error, u"Permissions"), NSObject(kURL));
    EXPECT_FALSE(entry(error, ZORFailingObject)) << "none was given";
    error = ZORPOSIX::errorForFunctionCodePathFailingObject(u"f", 2, "/none", NSString(u"object"));
    EXPECT_EQ(as<NSString>(entry(error, ZORFailingObject)).utf8(), "object");
    error = ZORPOSIX::errorForFunctionDomainCodePath(u"f", u"D", 1301, "/none");
    EXPECT_TRUE(zorHasDomain(error, u"D", 1301));
    EXPECT_EQ(as<NSString>(entry(error, ZORCodeString)).utf8(), "f");
    EXPECT_EQ(entry(error, u"Permissions"), NSObject(kURL));
}

TEST(POSIXErrors, WithoutAPathAreAProgrammingError) {
    testing::internal::CaptureStderr();
    EXPECT_THROW(ZORPOSIX::errorForFunctionCodePath(u"f", 2, nullptr), ZORException);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Precondition Failed: path"), std::string::npos);
}

} // namespace

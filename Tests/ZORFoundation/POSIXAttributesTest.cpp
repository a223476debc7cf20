// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ExtendedAttributes.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSException.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/ZORFoundation/PermissionInformation.h"

#include <dlfcn.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <utility>

namespace {

// Runs before the next call but one that reads an attribute or a list: between asking for a size and reading.
std::function<void()> betweenCalls;
int callsBefore = 0;

void countCall() {
    if (!betweenCalls || callsBefore-- > 0) return;
    const auto run = std::exchange(betweenCalls, nullptr);
    run();
}

} // namespace

// The system's calls, with a chance for the test to change the file between two of them.
extern "C" ssize_t lgetxattr(const char* path, const char* name, void* value, size_t size) noexcept {
    static const auto real =
        reinterpret_cast<ssize_t (*)(const char*, const char*, void*, size_t)>(dlsym(RTLD_NEXT, "lgetxattr"));
    countCall();
    return real(path, name, value, size);
}

extern "C" ssize_t llistxattr(const char* path, char* list, size_t size) noexcept {
    static const auto real =
        reinterpret_cast<ssize_t (*)(const char*, char*, size_t)>(dlsym(RTLD_NEXT, "llistxattr"));
    countCall();
    return real(path, list, size);
}

namespace {

constexpr int kNoFollow = AttributeOptions::noFollow;

NSObject entry(const NSError& error, const char16_t* key) {
    return error.userInfo().objectForKey(NSString(key));
}

std::string frames(const NSError& error) {
    std::string joined;
    for (const NSObject& frame : as<NSArray>(entry(error, ZORStackFrames)))
        joined += as<NSString>(frame).utf8() + "|";
    return joined;
}

class POSIXAttributes : public testing::Test {
protected:
    void SetUp() override { writeFile(file, ""); }
    void TearDown() override { betweenCalls = nullptr; }

    NSData get(const char* name) { return ZORPOSIX::getxattrPath(file.c_str(), name, kNoFollow, &error); }
    bool set(const char* name, std::string_view value) {
        return ZORPOSIX::setxattrPath(file.c_str(), name, value.data(), value.size(), kNoFollow, &error);
    }
    void change(int calls, std::function<void()> what) {
        callsBefore = calls;
        betweenCalls = std::move(what);
    }

    TemporaryFolder folder;
    std::string file = folder.path() + "/file", missing = folder.path() + "/missing";
    NSError error;
};

TEST_F(POSIXAttributes, ComeBackAsTheyWereSet) {
    const std::string bytes("\0\x01 binary \xff", 11);
    EXPECT_TRUE(set("a", bytes));
    EXPECT_EQ(get("a").bytes(), bytes);
    EXPECT_TRUE(set("a", "replaced"));
    EXPECT_EQ(get("a").bytes(), "replaced");
    EXPECT_TRUE(ZORPOSIX::removexattrPath(file.c_str(), "a", kNoFollow, &error));
    EXPECT_FALSE(error);
    EXPECT_FALSE(get("a"));
}

TEST_F(POSIXAttributes, OfNoBytesAreEmptyData) {
    EXPECT_TRUE(set("empty", ""));
    EXPECT_TRUE(get("empty"));
    EXPECT_EQ(get("empty").length(), 0u);
}

TEST_F(POSIXAttributes, UpTo1024BytesAreReadAtOnce) {
    ASSERT_TRUE(set("a", std::string(1024, 'x')));
    bool again = false;
    change(1, [&] { again = true; });
    EXPECT_EQ(get("a").bytes(), std::string(1024, 'x'));
    EXPECT_FALSE(again);
}

TEST_F(POSIXAttributes, Of1025BytesAreReadAfterTheirSizeIsAskedFor) {
    ASSERT_TRUE(set("a", std::string(1025, 'x')));
    bool again = false;
    change(2, [&] { again = true; });
    EXPECT_EQ(get("a").bytes(), std::string(1025, 'x'));
    EXPECT_TRUE(again) << "a third call";
}

TEST_F(POSIXAttributes, MayBeAsLargeAsTheFileSystemTakesThem) {
    TemporaryFolder inMemory("/dev/shm");
    file = inMemory.path() + "/file";
    writeFile(file, "");
    const std::string large(65536, 'x');
    if (setAttribute(file.c_str(), "large", large.data(), large.size(), 0) != 0)
        GTEST_SKIP() << "no attributes on this file system";
    EXPECT_EQ(get("large").bytes(), large);
}

TEST_F(POSIXAttributes, ThatAreMissingHaveTheBareError) {
    EXPECT_FALSE(get("missing"));
    EXPECT_EQ(error,
              NSObject(NSError(NSPOSIXErrorDomain, 93, {{NSString(ZORCodeString), NSString(u"getxattr")}})));
    EXPECT_EQ(error.localizedFailureReason().utf8(), "Attribute not found");
    EXPECT_FALSE(ZORPOSIX::getxattrPath(file.c_str(), "missing", kNoFollow, nullptr));
}

TEST_F(POSIXAttributes, AreThoseOfTheLinkWithoutFollowing) {
    ASSERT_TRUE(set("a", "value"));
    const std::string link = folder.path() + "/link";
    ASSERT_EQ(symlink("file", link.c_str()), 0);
    EXPECT_FALSE(ZORPOSIX::getxattrPath(link.c_str(), "a", kNoFollow, &error));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 93));
    EXPECT_EQ(ZORPOSIX::getxattrPath(link.c_str(), "a", 0, &error).bytes(), "value");
    EXPECT_EQ(ZORPOSIX::listxattrPath(link.c_str(), kNoFollow, &error).length(), 0u);
    EXPECT_EQ(ZORPOSIX::listxattrPath(link.c_str(), 0, &error).length(), 2u);
}

TEST_F(POSIXAttributes, AreListedWithTheirNuls) {
    const NSData none = ZORPOSIX::listxattrPath(file.c_str(), kNoFollow, &error);
    EXPECT_TRUE(none) << "empty, not nil";
    EXPECT_EQ(none.length(), 0u);
    ASSERT_TRUE(set("a", ""));
    setxattr(file.c_str(), "trusted.other", "", 0, 0); // where that is allowed
    EXPECT_EQ(ZORPOSIX::listxattrPath(file.c_str(), kNoFollow, &error).bytes(), std::string_view("a\0", 2));
    EXPECT_FALSE(error);
}

TEST_F(POSIXAttributes, NullArgumentsAreNamedInTheirOrder) {
    auto expectMissing = [&](const char* argument, const std::string& frame) {
        EXPECT_TRUE(zorHasDomain(error, ZORErrorDomain, ZORRequirementFailedError));
        EXPECT_EQ(as<NSString>(entry(error, ZORFailingObject)).utf8(), argument);
        EXPECT_EQ(frames(error), frame + "|");
    };
    EXPECT_FALSE(ZORPOSIX::getxattrPath(nullptr, nullptr, 0, &error));
    expectMissing("path", "+[ZORPOSIX getxattrPath:name:options:error:] (101)");
    EXPECT_FALSE(ZORPOSIX::getxattrPath("/", nullptr, 0, &error));
    expectMissing("name", "+[ZORPOSIX getxattrPath:name:options:error:] (102)");
    EXPECT_FALSE(ZORPOSIX::listxattrPath(nullptr, 0, &error));
    expectMissing("path", "+[ZORPOSIX listxattrPath:options:error:] (142)");
    EXPECT_FALSE(ZORPOSIX::removexattrPath(nullptr, nullptr, 0, &error));
    expectMissing("path", "+[ZORPOSIX removexattrPath:name:options:error:] (159)");
    EXPECT_FALSE(ZORPOSIX::removexattrPath("/", nullptr, 0, &error));
    expectMissing("name", "+[ZORPOSIX removexattrPath:name:options:error:] (160)");
    EXPECT_FALSE(ZORPOSIX::setxattrPath(nullptr, nullptr, nullptr, 0, 0, &error));
    expectMissing("path", "+[ZORPOSIX setxattrPath:name:value:size:options:error:] (172)");
    EXPECT_FALSE(ZORPOSIX::setxattrPath("/", nullptr, nullptr, 0, 0, &error));
    expectMissing("name", "+[ZORPOSIX setxattrPath:name:value:size:options:error:] (173)");
    EXPECT_FALSE(ZORPOSIX::setxattrPath("/", "a", nullptr, 0, 0, &error));
    expectMissing("value", "+[ZORPOSIX setxattrPath:name:value:size:options:error:] (174)");
}

TEST_F(POSIXAttributes, OfAMissingFileRaiseForTheMissingOperation) {
    file = missing;
    EXPECT_THROW(get("a"), NSException);
    EXPECT_THROW(set("a", "x"), NSException);
    EXPECT_THROW(ZORPOSIX::listxattrPath(missing.c_str(), kNoFollow, &error), NSException);
    EXPECT_THROW(ZORPOSIX::removexattrPath(missing.c_str(), "a", kNoFollow, &error), NSException);
    EXPECT_FALSE(error);
}

TEST_F(POSIXAttributes, WithoutASlotFailuresAreSilent) {
    EXPECT_FALSE(ZORPOSIX::getxattrPath(missing.c_str(), "a", kNoFollow, nullptr));
    EXPECT_FALSE(ZORPOSIX::listxattrPath(missing.c_str(), kNoFollow, nullptr));
    EXPECT_FALSE(ZORPOSIX::removexattrPath(missing.c_str(), "a", kNoFollow, nullptr));
    EXPECT_FALSE(ZORPOSIX::setxattrPath(missing.c_str(), "a", "", 0, kNoFollow, nullptr));
    EXPECT_FALSE(ZORPOSIX::getxattrPath(nullptr, nullptr, 0, nullptr));
}

TEST_F(POSIXAttributes, NameTheFailedCallWhereTheHostAddsPermissions) {
    const SuppliedPermissionInformation supplied;
    file = missing;
    auto expectError = [&](const char* function, const std::string& frame) {
        EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 2));
        EXPECT_EQ(as<NSString>(entry(error, ZORCodeString)).utf8(), function);
        EXPECT_EQ(as<NSURL>(entry(error, u"Permissions")).path().utf8(), missing);
        EXPECT_EQ(frames(error), frame + "|");
    };
    EXPECT_FALSE(get("a"));
    expectError("getxattr", "+[ZORPOSIX getxattrPath:name:options:error:] (122)");
    EXPECT_FALSE(ZORPOSIX::listxattrPath(missing.c_str(), kNoFollow, &error));
    expectError("listxattr", "+[ZORPOSIX listxattrPath:options:error:] (147)");
    EXPECT_FALSE(ZORPOSIX::removexattrPath(missing.c_str(), "a", kNoFollow, &error));
    expectError("removexattr", "+[ZORPOSIX removexattrPath:name:options:error:] (163)");
    EXPECT_FALSE(set("a", "x"));
    expectError("setxattr", "+[ZORPOSIX setxattrPath:name:value:size:options:error:] (178)");
}

TEST_F(POSIXAttributes, AMissingOneToRemoveIs93) {
    const SuppliedPermissionInformation supplied;
    EXPECT_FALSE(ZORPOSIX::removexattrPath(file.c_str(), "a", kNoFollow, &error));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 93));
}

TEST_F(POSIXAttributes, ThatGrowBetweenTheCallsFail) {
    const SuppliedPermissionInformation supplied;
    ASSERT_TRUE(set("a", std::string(1100, 'x')));
    change(2, [&] { setAttribute(file.c_str(), "a", std::string(1200, 'y').data(), 1200, 0); });
    EXPECT_FALSE(get("a"));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 34));
    EXPECT_EQ(frames(error), "+[ZORPOSIX getxattrPath:name:options:error:] (130)|");
}

TEST_F(POSIXAttributes, ThatShrinkBetweenTheCallsFailWithTheLibrarysCode) {
    ASSERT_TRUE(set("a", std::string(1200, 'x')));
    auto shrink = [&] { setAttribute(file.c_str(), "a", std::string(1100, 'y').data(), 1100, 0); };
    {
        const SuppliedPermissionInformation supplied;
        change(2, shrink);
        EXPECT_FALSE(get("a"));
        EXPECT_TRUE(zorHasDomain(error, ZORErrorDomain, 1301));
        EXPECT_EQ(as<NSString>(entry(error, ZORCodeString)).utf8(), "getxattr");
        EXPECT_EQ(frames(error), "+[ZORPOSIX getxattrPath:name:options:error:] (135)|");
    }
    ASSERT_TRUE(set("a", std::string(1200, 'x')));
    change(2, shrink);
    EXPECT_FALSE(ZORPOSIX::getxattrPath(file.c_str(), "a", kNoFollow, nullptr));
}

TEST_F(POSIXAttributes, ThatGoBetweenTheCallsFailAsAnyOtherWay) {
    const SuppliedPermissionInformation supplied;
    ASSERT_TRUE(set("a", std::string(1200, 'x')));
    change(1, [&] { removeAttribute(file.c_str(), "a", 0); });
    EXPECT_FALSE(get("a"));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 93));
    EXPECT_EQ(frames(error), "+[ZORPOSIX getxattrPath:name:options:error:] (122)|");
}

TEST_F(POSIXAttributes, ListsThatShrinkKeepTheirSize) {
    ASSERT_TRUE(set("a", ""));
    ASSERT_TRUE(set("long name", ""));
    change(2, [&] { removeAttribute(file.c_str(), "long name", 0); });
    const NSData list = ZORPOSIX::listxattrPath(file.c_str(), kNoFollow, &error);
    EXPECT_EQ(list.bytes(), std::string("a\0", 2) + std::string(10, '\0'));
}

TEST_F(POSIXAttributes, ListsThatGrowFail) {
    const SuppliedPermissionInformation supplied;
    ASSERT_TRUE(set("a", ""));
    change(2, [&] { setAttribute(file.c_str(), "long name", "", 0, 0); });
    EXPECT_FALSE(ZORPOSIX::listxattrPath(file.c_str(), kNoFollow, &error));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 34));
    EXPECT_EQ(frames(error), "+[ZORPOSIX listxattrPath:options:error:] (151)|");
}

TEST_F(POSIXAttributes, ListsThatGrowBelowTheirRenamingAreReadAgain) {
    ASSERT_TRUE(set("a", ""));
    change(1, [&] { setAttribute(file.c_str(), "b", "", 0, 0); });
    EXPECT_EQ(listAttributes(file.c_str(), nullptr, 0, kNoFollow), 4);
}

} // namespace

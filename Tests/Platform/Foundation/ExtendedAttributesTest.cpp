// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ExtendedAttributes.h"

#include "Tests/Support/TemporaryFolder.h"

#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

class Attributes : public testing::Test {
protected:
    void SetUp() override { writeFile(file, "text"); }

    // The value by the system's own name, or "" and a failure.
    std::string systemValue(const std::string& name) const {
        char value[256];
        const ssize_t length = getxattr(file.c_str(), name.c_str(), value, sizeof value);
        EXPECT_GE(length, 0) << name;
        return std::string(value, length > 0 ? size_t(length) : 0);
    }
    int set(const char* name, std::string_view value, int options = 0) const {
        return setAttribute(file.c_str(), name, value.data(), value.size(), options);
    }
    std::string get(const char* name, int options = 0) const {
        char value[256];
        const ssize_t length = getAttribute(file.c_str(), name, value, sizeof value, options);
        return length < 0 ? "errno " + std::to_string(errno) : std::string(value, size_t(length));
    }
    static std::set<std::string> names(const std::string& path, int options = 0) {
        std::string list(size_t(listAttributes(path.c_str(), nullptr, 0, options)), '\0');
        EXPECT_EQ(listAttributes(path.c_str(), list.data(), list.size(), options), ssize_t(list.size()));
        std::set<std::string> found;
        for (size_t at = 0; at < list.size(); at += strlen(&list[at]) + 1) found.insert(&list[at]);
        return found;
    }

    TemporaryFolder folder;
    std::string file = folder.path() + "/file";
};

TEST_F(Attributes, WithoutANamespaceAreTheUsers) {
    EXPECT_EQ(set("net_example_notes", "value"), 0);
    EXPECT_EQ(systemValue("user.net_example_notes"), "value");
    EXPECT_EQ(get("net_example_notes"), "value");
    EXPECT_EQ(get("user.net_example_notes"), "value");
    EXPECT_EQ(removeAttribute(file.c_str(), "net_example_notes", 0), 0);
    EXPECT_EQ(get("net_example_notes"), "errno " + std::to_string(ENODATA));
}

TEST_F(Attributes, AreListedWithoutTheirNamespace) {
    EXPECT_EQ(names(file), std::set<std::string>{});
    set("a", "");
    set("com.example:b", "");
    EXPECT_EQ(names(file), (std::set<std::string>{"a", "com.example:b"}));
    EXPECT_EQ(listAttributes(file.c_str(), nullptr, 0, 0), ssize_t(sizeof "a" + sizeof "com.example:b"));
}

TEST_F(Attributes, OfOtherNamespacesAreNotListed) {
    set("a", "");
    if (setxattr(file.c_str(), "trusted.b", "x", 1, 0) != 0)
        GTEST_SKIP() << "only the superuser may set these";
    EXPECT_EQ(names(file), (std::set<std::string>{"a"}));
    EXPECT_EQ(listAttributes(file.c_str(), nullptr, 0, 0), 2) << "the size counts the renamed list";
    EXPECT_EQ(get("trusted.b"), "x");
}

TEST_F(Attributes, ThatLookLikeANamespaceCanBeAskedForByTheirListedName) {
    ASSERT_EQ(setxattr(file.c_str(), "user.user.a", "1", 1, 0), 0);
    ASSERT_EQ(setxattr(file.c_str(), "user.security.b", "2", 1, 0), 0);
    EXPECT_EQ(names(file), (std::set<std::string>{"user.user.a", "user.security.b"}));
    EXPECT_EQ(get("user.user.a"), "1");
    EXPECT_EQ(get("user.security.b"), "2");
}

TEST_F(Attributes, ReportTheirSizeAndABufferThatIsTooSmall) {
    set("a", "12345");
    EXPECT_EQ(getAttribute(file.c_str(), "a", nullptr, 0, 0), 5);
    char small[4];
    EXPECT_EQ(getAttribute(file.c_str(), "a", small, sizeof small, 0), -1);
    EXPECT_EQ(errno, ERANGE);
    EXPECT_EQ(listAttributes(file.c_str(), small, 1, 0), -1);
    EXPECT_EQ(errno, ERANGE);
    set("empty", "");
    EXPECT_EQ(getAttribute(file.c_str(), "empty", nullptr, 0, 0), 0);
}

TEST_F(Attributes, OfALinkAreItsOwnWithoutFollowing) {
    const std::string link = folder.path() + "/link";
    ASSERT_EQ(symlink("file", link.c_str()), 0);
    set("a", "value");
    char value[8];
    EXPECT_EQ(getAttribute(link.c_str(), "a", value, sizeof value, 0), 5);
    EXPECT_EQ(getAttribute(link.c_str(), "a", value, sizeof value, AttributeOptions::noFollow), -1);
    EXPECT_EQ(errno, ENODATA);
    EXPECT_EQ(names(link).count("a"), 1u);
    EXPECT_EQ(names(link, AttributeOptions::noFollow).size(), 0u);
    EXPECT_EQ(setAttribute(link.c_str(), "b", "", 0, AttributeOptions::noFollow), -1);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(removeAttribute(link.c_str(), "a", AttributeOptions::noFollow), -1);
    EXPECT_EQ(get("a"), "value");
}

TEST_F(Attributes, AreMadeOrReplacedAsAskedFor) {
    EXPECT_EQ(set("a", "1", AttributeOptions::replace), -1);
    EXPECT_EQ(errno, ENODATA);
    EXPECT_EQ(set("a", "1", AttributeOptions::create), 0);
    EXPECT_EQ(set("a", "2", AttributeOptions::create), -1);
    EXPECT_EQ(errno, EEXIST);
    EXPECT_EQ(set("a", "3", AttributeOptions::replace), 0);
    EXPECT_EQ(get("a"), "3");
}

TEST_F(Attributes, RefuseOptionsThatMeanNothing) {
    EXPECT_EQ(set("a", "1", 64), -1);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(get("a", AttributeOptions::create), "errno " + std::to_string(EINVAL));
    EXPECT_EQ(listAttributes(file.c_str(), nullptr, 0, 64), -1);
    EXPECT_EQ(removeAttribute(file.c_str(), "a", 64), -1);
    EXPECT_EQ(get("a", AttributeOptions::showCompression), "errno " + std::to_string(ENODATA));
}

TEST_F(Attributes, HaveNamesOfALimitedLength) {
    const std::string longest(250, 'n'), tooLong(251, 'n');
    EXPECT_EQ(set(longest.c_str(), "v"), 0);
    EXPECT_EQ(get(longest.c_str()), "v");
    EXPECT_EQ(set(tooLong.c_str(), "v"), -1);
    EXPECT_EQ(errno, ENAMETOOLONG);
    EXPECT_EQ(get(tooLong.c_str()), "errno " + std::to_string(ENAMETOOLONG));
    EXPECT_EQ(removeAttribute(file.c_str(), tooLong.c_str(), 0), -1);
}

TEST_F(Attributes, AreMissingWhereTheFileSystemHasNone) {
    file = "/proc/version";
    EXPECT_EQ(get("a"), "errno " + std::to_string(ENODATA));
    EXPECT_EQ(removeAttribute(file.c_str(), "a", 0), -1);
    EXPECT_EQ(errno, ENODATA);
    EXPECT_EQ(listAttributes(file.c_str(), nullptr, 0, 0), 0);
    EXPECT_EQ(set("a", "v"), -1);
    EXPECT_EQ(platformAttributeErrno(errno), 45);
}

TEST_F(Attributes, OfAMissingFileFail) {
    file = folder.path() + "/missing";
    EXPECT_EQ(get("a"), "errno " + std::to_string(ENOENT));
    EXPECT_EQ(listAttributes(file.c_str(), nullptr, 0, 0), -1);
    EXPECT_EQ(set("a", "v"), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST(AttributeErrors, AreThePlatforms) {
    EXPECT_EQ(platformAttributeErrno(ENODATA), 93);
    EXPECT_EQ(platformAttributeErrno(EOPNOTSUPP), 45);
    EXPECT_EQ(platformAttributeErrno(ENAMETOOLONG), 63);
    EXPECT_EQ(platformAttributeErrno(ERANGE), 34);
}

} // namespace

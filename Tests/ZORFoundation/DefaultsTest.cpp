// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSProcessInfo.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/Preferences.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"
#include "ZORFoundation/Source/NSUserDefaults+ZOR.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

NSString s(const char16_t* text) { return text; }

// Preferences are read once a process, so each test has a domain of its own.
class StoredPreferences : public testing::Test {
protected:
    static void SetUpTestSuite() {
        folder = new TemporaryFolder;
        std::filesystem::create_directory(folder->path() + "/user");
        std::filesystem::create_directory(folder->path() + "/system");
        setenv("XDG_CONFIG_HOME", (folder->path() + "/user").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", ("relative/ignored::" + folder->path() + "/system").c_str(), 1);
        write("user/NSGlobalDomain", {{s(u"Global"), s(u"global")}, {s(u"Both"), s(u"global")}});
    }
    static void TearDownTestSuite() { delete folder; }

    static void write(const std::string& name, const NSDictionary& list,
                      NSPropertyListFormat format = NSPropertyListBinaryFormat_v1_0) {
        writeFile(folder->path() + "/" + name + ".plist",
                  dataFromPropertyList(list, format, nullptr).bytes());
    }

    static TemporaryFolder* folder;
    NSUserDefaults defaults{{u"tool", u"-Argument", u"YES", u"-Number", u"7"}, u"domain.of.tool"};
};

TemporaryFolder* StoredPreferences::folder = nullptr;

TEST_F(StoredPreferences, BooleansOfADomain) {
    NSString d = u"booleans";
    write("user/booleans", {{s(u"True"), NSNumber::withBool(true)},
                            {s(u"One"), NSNumber::withInteger(1)},
                            {s(u"Zero"), NSNumber::withInteger(0)},
                            {s(u"Low32BitsZero"), NSNumber::withInteger(int64_t(1) << 32)},
                            {s(u"yes"), s(u"yes")},
                            {s(u"NO"), s(u"NO")},
                            {s(u"fAlse"), s(u"fAlse")},
                            {s(u"text1"), s(u"1")},
                            {s(u"Real"), NSNumber::withDouble(1)},
                            {s(u"Array"), NSArray{s(u"YES")}}});
    for (bool other : {true, false}) {
        EXPECT_TRUE(zorBoolForKey(defaults, u"True", d, other));
        EXPECT_TRUE(zorBoolForKey(defaults, u"One", d, other));
        EXPECT_FALSE(zorBoolForKey(defaults, u"Zero", d, other));
        EXPECT_FALSE(zorBoolForKey(defaults, u"Low32BitsZero", d, other));
        EXPECT_TRUE(zorBoolForKey(defaults, u"yes", d, other));
        EXPECT_FALSE(zorBoolForKey(defaults, u"NO", d, other));
        EXPECT_FALSE(zorBoolForKey(defaults, u"fAlse", d, other));
        for (const char16_t* key : {u"Absent", u"Array", u"text1", u"Real"}) {
            EXPECT_EQ(zorBoolForKey(defaults, key, d, other), other) << s(key).utf8();
        }
    }
}

TEST_F(StoredPreferences, IntegersOfADomain) {
    NSString d = u"integers";
    write("user/integers", {{s(u"Number"), NSNumber::withInteger(-5'000'000'000)},
                            {s(u"Text"), s(u" - 42")},
                            {s(u"Huge"), s(u"99999999999")},
                            {s(u"Word"), s(u"42x")},
                            {s(u"Empty"), s(u" ")},
                            {s(u"Real"), NSNumber::withDouble(1)},
                            {s(u"Bool"), NSNumber::withBool(true)},
                            {s(u"Array"), NSArray{NSNumber::withInt(1)}}});
    EXPECT_EQ(zorIntegerForKey(defaults, u"Number", d, 3), -5'000'000'000);
    EXPECT_EQ(zorIntegerForKey(defaults, u"Text", d, 3), -42);
    EXPECT_EQ(zorIntegerForKey(defaults, u"Huge", d, 3), INT32_MAX);
    for (const char16_t* key : {u"Absent", u"Array", u"Word", u"Empty", u"Real", u"Bool"}) {
        EXPECT_EQ(zorIntegerForKey(defaults, key, d, 3), 3) << s(key).utf8();
    }
}

TEST_F(StoredPreferences, ObjectsOfADomainComeUnchanged) {
    NSString d = u"objects";
    NSArray array{s(u"a"), NSNumber::withDouble(2.5)};
    write("user/objects", {{s(u"Array"), array}}, NSPropertyListXMLFormat_v1_0);
    EXPECT_EQ(zorObjectForKey(defaults, u"Array", d, nullptr), NSObject(array));
    EXPECT_FALSE(zorObjectForKey(defaults, u"Absent", d, nullptr));
    EXPECT_EQ(zorObjectForKey(defaults, u"Absent", d, s(u"default")), NSObject(s(u"default")));
}

TEST_F(StoredPreferences, TheUsersComeBeforeTheSystemsAndTheGlobalLast) {
    NSString d = u"order";
    write("user/order", {{s(u"Mine"), s(u"user")}});
    write("system/order",
          {{s(u"Mine"), s(u"system")}, {s(u"Theirs"), s(u"system")}, {s(u"Both"), s(u"domain")}});
    EXPECT_EQ(as<NSString>(CFPreferencesCopyAppValue(u"Mine", d)).utf8(), "user");
    EXPECT_EQ(as<NSString>(CFPreferencesCopyAppValue(u"Theirs", d)).utf8(), "system");
    EXPECT_EQ(as<NSString>(CFPreferencesCopyAppValue(u"Both", d)).utf8(), "domain");
    EXPECT_EQ(as<NSString>(CFPreferencesCopyAppValue(u"Global", d)).utf8(), "global");
    EXPECT_FALSE(CFPreferencesCopyAppValue(u"Absent", d));
}

TEST_F(StoredPreferences, DamagedListsAreAbsentWithOneLogLine) {
    writeFile(folder->path() + "/user/damaged.plist", "<plist><dict>");
    writeFile(folder->path() + "/user/noDictionary.plist", "(a, b)");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(CFPreferencesCopyAppValue(u"k", u"damaged"));
    EXPECT_FALSE(CFPreferencesCopyAppValue(u"k", u"damaged"));
    std::string lines = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1) << lines;
    EXPECT_NE(lines.find("damaged.plist"), std::string::npos) << lines;
    testing::internal::CaptureStderr();
    EXPECT_FALSE(CFPreferencesCopyAppValue(u"k", u"noDictionary"));
    lines = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1) << lines;
}

TEST_F(StoredPreferences, OldStyleListsRead) {
    writeFile(folder->path() + "/user/oldStyle.plist", "{ Key = \"a value\"; }");
    EXPECT_EQ(as<NSString>(CFPreferencesCopyAppValue(u"Key", u"oldStyle")).utf8(), "a value");
}

TEST_F(StoredPreferences, TheCommandLineIsSeenByTheSearchListAlone) {
    EXPECT_TRUE(zorBoolForKey(defaults, u"Argument", false));
    EXPECT_FALSE(zorBoolForKey(defaults, u"Argument", u"domain.of.tool", false));
    EXPECT_EQ(zorIntegerForKey(defaults, u"Number", 1), 7);
    EXPECT_EQ(zorIntegerForKey(defaults, u"Number", u"domain.of.tool", 1), 1);
    EXPECT_EQ(zorObjectForKey(defaults, u"Number", u"domain.of.tool", nullptr), NSObject());
}

TEST_F(StoredPreferences, TheSearchListFindsTheReceiversDomain) {
    write("user/searched", {{s(u"Stored"), s(u"here")}, {s(u"Argument"), s(u"hidden")}});
    NSUserDefaults searched({u"tool", u"-Argument", u"seen"}, u"searched");
    EXPECT_EQ(searched.stringForKey(u"Stored").utf8(), "here");
    EXPECT_EQ(searched.stringForKey(u"Argument").utf8(), "seen");
    EXPECT_EQ(searched.stringForKey(u"Global").utf8(), "global");
}

// The process's own settings come from a domain of the test while this lives.
class OwnDomain {
public:
    explicit OwnDomain(const NSString& domain) { NSUserDefaults::standardUserDefaults().setDomain(domain); }
    ~OwnDomain() {
        NSUserDefaults::standardUserDefaults().setDomain(NSProcessInfo::processInfo().processName());
    }
};

TEST_F(StoredPreferences, SayWhetherTheProcessIsSandboxed) {
    EXPECT_FALSE(NSProcessInfoZOR::zorIsInAppSandbox());
    write("user/sandboxed", {{s(u"ZORAppSandbox"), s(u"YES")}});
    OwnDomain domain(u"sandboxed");
    EXPECT_TRUE(NSProcessInfoZOR::zorIsInAppSandbox());
}

TEST_F(StoredPreferences, HaveEachErrorLoggedInShort) {
    write("user/shortErrors", {{s(u"ErrorShortLogging"), NSNumber::withBool(true)}});
    NSError error(u"Domain", 7, {{s(NSUnderlyingErrorKey), NSError(NSPOSIXErrorDomain, 2)}});
    testing::internal::CaptureStderr();
    NSString silent = zorFullDescription(error);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

    OwnDomain domain(u"shortErrors");
    testing::internal::CaptureStderr();
    EXPECT_EQ(zorFullDescription(error), silent);
    std::string lines = testing::internal::GetCapturedStderr();
    size_t outer = lines.find("Error: Error Domain=Domain Code=7 ");
    size_t inner = lines.find("Error: Error Domain=NSPOSIXErrorDomain Code=2 ");
    EXPECT_LT(outer, inner) << lines;
    EXPECT_NE(inner, std::string::npos) << lines;
}

TEST(SearchListDefaults, CheckTheClass) {
    NSUserDefaults defaults(
        {u"tool", u"-Seven", u"7", u"-Real", u"2.5", u"-Array", u"(1)", u"-Size", u"{1.5, 2}"},
        u"none.at.all");
    defaults.registerDefaults({{s(u"Number"), NSNumber::withInteger(3)}});
    EXPECT_EQ(zorStringForKey(defaults, u"Number", u"default").utf8(), "default");
    EXPECT_EQ(zorStringForKey(defaults, u"Seven", u"default").utf8(), "7");
    EXPECT_EQ(zorStringForKey(defaults, u"Absent", u"default").utf8(), "default");
    EXPECT_EQ(zorIntegerForKey(defaults, u"Seven", 1), 7);
    EXPECT_EQ(zorIntegerForKey(defaults, u"Number", 1), 3);
    EXPECT_EQ(zorIntegerForKey(defaults, u"Array", 1), 1);
    EXPECT_EQ(zorIntegerForKey(defaults, u"Absent", 1), 1);
    EXPECT_EQ(zorDoubleForKey(defaults, u"Real", 1), 2.5);
    EXPECT_EQ(zorDoubleForKey(defaults, u"Number", 1), 3);
    EXPECT_EQ(zorDoubleForKey(defaults, u"Array", 1), 1);
    EXPECT_TRUE(zorBoolForKey(defaults, u"Seven", false));
    EXPECT_TRUE(zorBoolForKey(defaults, u"Number", false));
    EXPECT_TRUE(zorBoolForKey(defaults, u"Array", true));
    EXPECT_FALSE(zorBoolForKey(defaults, u"Absent", false));
    EXPECT_EQ(zorObjectForKey(defaults, u"Absent", s(u"x")), NSObject(s(u"x")));
    EXPECT_EQ(zorObjectForKey(defaults, u"Seven", nullptr), NSObject(s(u"7")));
    EXPECT_EQ(zorSizeForKey(defaults, u"Size", {9, 9}), (NSSize{1.5, 2}));
    EXPECT_EQ(zorSizeForKey(defaults, u"Absent", {0.1, 1.0 / 3}), (NSSize{0.1, 1.0 / 3}));
    EXPECT_EQ(zorSizeForKey(defaults, u"Number", {3, 4}), (NSSize{3, 4}));
}

TEST(NilKeyDeathTest, IsReportedThenStopsTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    NSUserDefaults defaults({}, u"d");
    const char* report = "NSUserDefaults.ZOR:[0-9]+ -zorBoolForKey:domain:defaultValue:: Assertion Failed: "
                         "Precondition Failed: key";
    EXPECT_DEATH((void)zorBoolForKey(defaults, nullptr, u"d", true), report);
    EXPECT_DEATH((void)zorBoolForKey(defaults, nullptr, u"d", true),
                 "Assertion failed: \\(\\(\\(key\\)\\)\\), function -\\[NSUserDefaults\\(ZOR\\) "
                 "zorBoolForKey:domain:defaultValue:\\], file ZORFoundation/Source/NSUserDefaults.ZOR, line "
                 "[0-9]+\\.");
    EXPECT_DEATH((void)zorIntegerForKey(defaults, nullptr, u"d", 1), "zorIntegerForKey:domain:defaultValue:");
    EXPECT_DEATH((void)zorObjectForKey(defaults, nullptr, u"d", NSObject()),
                 "zorObjectForKey:domain:defaultValue:");
    EXPECT_DEATH((void)zorObjectForKey(defaults, nullptr, NSObject()), "zorObjectForKey:defaultValue:");
    EXPECT_DEATH((void)zorStringForKey(defaults, nullptr, u""), "zorStringForKey:defaultValue:");
    EXPECT_DEATH((void)zorBoolForKey(defaults, nullptr, true), "zorBoolForKey:defaultValue:");
    EXPECT_DEATH((void)zorIntegerForKey(defaults, nullptr, 1), "zorIntegerForKey:defaultValue:");
    EXPECT_DEATH((void)zorDoubleForKey(defaults, nullptr, 1), "zorDoubleForKey:defaultValue:");
    EXPECT_DEATH((void)zorSizeForKey(defaults, nullptr, {}), "zorStringForKey:defaultValue:");
}

} // namespace

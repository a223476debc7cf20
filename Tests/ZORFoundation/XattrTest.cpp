// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/ZORFoundation/PermissionInformation.h"
#include "ZORFoundation/Source/NSString+ZORCreation.h"
#include "ZORFoundation/Source/NSURL+ZORXattr.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

NSObject entry(const NSError& error, const char16_t* key) {
    return error.userInfo().objectForKey(NSString(key));
}

std::string frames(const NSError& error) {
    std::string joined;
    for (const NSObject& frame : as<NSArray>(entry(error, ZORStackFrames)))
        joined += as<NSString>(frame).utf8() + "|";
    return joined;
}

NSData dataOf(std::string_view bytes) { return NSData(std::string(bytes)); }

const NSError kMissing(NSPOSIXErrorDomain, 93, {{NSString(ZORCodeString), NSString(u"getxattr")}});

class Xattr : public testing::Test {
protected:
    void SetUp() override { writeFile(file, "text"); }

    NSURL url() const { return NSURL::fileURLWithFileSystemRepresentation(file, false); }
    std::string systemValue(const char* name) const {
        char value[4096];
        const ssize_t length = getxattr(file.c_str(), name, value, sizeof value);
        return length < 0 ? "missing" : std::string(value, size_t(length));
    }
    void setSystemValue(const char* name, std::string_view value) const {
        ASSERT_EQ(setxattr(file.c_str(), name, value.data(), value.size(), 0), 0);
    }

    TemporaryFolder folder;
    std::string file = folder.path() + "/file";
    NSError error;
};

TEST_F(Xattr, HoldData) {
    const std::string bytes("\0\xff\x01", 3);
    EXPECT_TRUE(zorSetXattrData(url(), dataOf(bytes), u"key", &error));
    EXPECT_EQ(systemValue("user.key"), bytes);
    EXPECT_EQ(zorXattrDataForKey(url(), u"key", &error).bytes(), bytes);
    EXPECT_TRUE(zorSetXattrData(url(), dataOf(""), u"key", &error));
    EXPECT_TRUE(zorXattrDataForKey(url(), u"key", &error));
    EXPECT_FALSE(error);
}

TEST_F(Xattr, HoldTextWithoutATerminatingNul) {
    EXPECT_TRUE(zorSetXattrString(url(), u"t\u00e9xt", u"key", &error));
    EXPECT_EQ(systemValue("user.key"), "t\xC3\xA9xt");
    EXPECT_EQ(zorXattrStringForKey(url(), u"key", &error).utf8(), "t\xC3\xA9xt");
    EXPECT_FALSE(error);
}

TEST_F(Xattr, HoldPropertyListsInTheBinaryForm) {
    const NSObject list = NSDictionary{{NSString(u"a"), NSArray{NSNumber::withInt(1), NSString(u"b")}}};
    EXPECT_TRUE(zorSetXattrPropertyList(url(), list, u"key", &error));
    EXPECT_EQ(systemValue("user.key").substr(0, 8), "bplist00");
    EXPECT_EQ(zorXattrPropertyListForKey(url(), u"key", &error), list);
    EXPECT_FALSE(error);
}

TEST_F(Xattr, AreReadInEveryFormOfPropertyList) {
    setSystemValue("user.xml", "<plist><array><string>a</string></array></plist>");
    setSystemValue("user.old", "(a)");
    setSystemValue("user.string", "<plist><string>a</string></plist>");
    EXPECT_EQ(zorXattrPropertyListForKey(url(), u"xml", &error), NSObject(NSArray{NSString(u"a")}));
    EXPECT_EQ(zorXattrPropertyListForKey(url(), u"old", &error), NSObject(NSArray{NSString(u"a")}));
    EXPECT_EQ(zorXattrPropertyListForKey(url(), u"string", &error), NSObject(NSString(u"a"))) << "any root";
    EXPECT_FALSE(error);
}

TEST_F(Xattr, HaveKeysInUTF8) {
    EXPECT_TRUE(zorSetXattrString(url(), u"v", u"cl\u00e9", &error));
    EXPECT_EQ(systemValue("user.cl\xC3\xA9"), "v");
    EXPECT_EQ(zorXattrStringForKey(url(), u"cl\u00e9", &error).utf8(), "v");
}

TEST_F(Xattr, ListTheirKeys) {
    EXPECT_TRUE(zorXattrKeysError(url(), &error)) << "empty, not nil";
    EXPECT_EQ(zorXattrKeysError(url(), &error).count(), 0u);
    setSystemValue("user.net_sourceforge_skim-app_text_notes", "1");
    EXPECT_EQ(zorXattrKeysError(url(), &error),
              NSObject(NSArray{NSString(u"net_sourceforge_skim-app_text_notes")}));
    setSystemValue("user.bad \xff", "no text");
    EXPECT_EQ(zorXattrKeysError(url(), &error).count(), 1u);
    setSystemValue("user.second", "2");
    EXPECT_EQ(zorXattrKeysError(url(), &error).count(), 2u);
    EXPECT_FALSE(error);
}

TEST_F(Xattr, AreRemoved) {
    EXPECT_TRUE(zorSetXattrString(url(), u"v", u"key", &error));
    EXPECT_TRUE(zorRemoveXattrForKey(url(), u"key", &error));
    EXPECT_EQ(systemValue("user.key"), "missing");
}

TEST_F(Xattr, ThatAreMissingHaveTheBareError) {
    EXPECT_FALSE(zorXattrDataForKey(url(), u"key", &error));
    EXPECT_EQ(error, NSObject(kMissing));
    error = nullptr;
    EXPECT_FALSE(zorXattrStringForKey(url(), u"key", &error));
    EXPECT_EQ(error, NSObject(kMissing));
    error = nullptr;
    EXPECT_FALSE(zorXattrPropertyListForKey(url(), u"key", &error));
    EXPECT_EQ(error, NSObject(kMissing));
    EXPECT_FALSE(zorXattrPropertyListForKey(url(), u"key", nullptr));
}

TEST_F(Xattr, AreMissingOnAFileSystemWithoutThem) {
    EXPECT_FALSE(zorXattrPropertyListForKey(NSURL::fileURLWithPath(u"/proc/version"), u"key", &error));
    EXPECT_EQ(error, NSObject(kMissing));
}

TEST_F(Xattr, AreThoseOfALinkItself) {
    zorSetXattrString(url(), u"v", u"key", &error);
    ASSERT_EQ(symlink("file", (folder.path() + "/link").c_str()), 0);
    file = folder.path() + "/link";
    EXPECT_FALSE(zorXattrDataForKey(url(), u"key", &error));
    EXPECT_EQ(error, NSObject(kMissing));
    EXPECT_EQ(zorXattrKeysError(url(), &error).count(), 0u);
    EXPECT_FALSE(zorSetXattrString(url(), u"w", u"key", nullptr));
    EXPECT_FALSE(zorRemoveXattrForKey(url(), u"key", nullptr));
    file = folder.path() + "/file";
    EXPECT_EQ(systemValue("user.key"), "v");
}

TEST_F(Xattr, ThatAreNoTextNameTheBytesAndTheEncoding) {
    setSystemValue("user.key", "\xff\xfe");
    EXPECT_FALSE(zorXattrStringForKey(url(), u"key", &error));
    EXPECT_TRUE(zorHasDomain(error, ZORErrorDomain, 500));
    EXPECT_EQ(entry(error, ZORInputObject), NSObject(dataOf("\xff\xfe")));
    EXPECT_TRUE(entry(error, ZORStringEncoding));
}

TEST_F(Xattr, ThatAreNoPropertyListShowTheirHead) {
    setSystemValue("user.key", std::string(2000, '\x01'));
    EXPECT_FALSE(zorXattrPropertyListForKey(url(), u"key", &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 3840));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(dataOf(std::string(1024, '\x01'))));
    EXPECT_EQ(frames(error),
              "+[NSPropertyListSerialization(ZOR) zorPropertyListFromData:options:format:error:] (65)|");
    EXPECT_FALSE(entry(error, ZORFailingKey)) << "the value was there";
}

TEST_F(Xattr, RequireAPathAndAKey) {
    EXPECT_FALSE(zorXattrDataForKey(NSURL::URLWithString(u"http://h/a"), u"key", &error));
    EXPECT_TRUE(zorHasDomain(error, ZORErrorDomain, ZORRequirementFailedError));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSString(u"path")));
    EXPECT_EQ(frames(error), "-[NSURL(ZORXattr) zorXattrDataForKey:error:] (64)|");
    for (const NSString& none : {NSString(), NSString(std::u16string(u"a\xD800", 2))}) {
        EXPECT_FALSE(zorXattrDataForKey(url(), none, &error));
        EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSString(u"key8")));
        EXPECT_EQ(frames(error), "-[NSURL(ZORXattr) zorXattrDataForKey:error:] (67)|");
    }
    EXPECT_FALSE(zorXattrDataForKey(url(), nullptr, nullptr));
    EXPECT_FALSE(zorXattrKeysError(NSURL(), &error));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSString(u"path")));
    EXPECT_FALSE(zorRemoveXattrForKey(url(), nullptr, &error));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSString(u"name")));
    EXPECT_EQ(entry(error, ZORFailingKey), NSObject(NSString(u"<nil>")));
}

TEST_F(Xattr, RequireAValue) {
    for (const NSString& none : {NSString(), NSString(std::u16string(u"a\xD800", 2))}) {
        EXPECT_FALSE(zorSetXattrString(url(), none, u"key", &error));
        EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSString(u"value")));
        EXPECT_EQ(entry(error, ZORFailingKey), NSObject(NSString(u"key")));
        EXPECT_EQ(frames(error), "+[ZORPOSIX setxattrPath:name:value:size:options:error:] (174)|");
    }
    EXPECT_FALSE(zorSetXattrData(url(), nullptr, u"key", nullptr));
    EXPECT_EQ(systemValue("user.key"), "missing");
}

TEST_F(Xattr, RefuseWhatIsNoPropertyList) {
    const NSObject list = NSArray{NSURL::URLWithString(u"http://h/")};
    EXPECT_FALSE(zorSetXattrPropertyList(url(), list, u"key", &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 3852));
    EXPECT_EQ(entry(error, ZORFailingObject), list);
    EXPECT_EQ(frames(error),
              "-[NSURL(ZORXattr) zorSetXattrPropertyList:forKey:error:] (94)|"
              "+[NSPropertyListSerialization(ZOR) zorDataFromPropertyList:format:error:] (21)|");
    EXPECT_FALSE(zorSetXattrPropertyList(url(), list, u"key", nullptr));
}

TEST_F(Xattr, OfAMissingFileRaiseForTheMissingOperation) {
    file = folder.path() + "/missing";
    EXPECT_THROW(zorXattrDataForKey(url(), u"key", &error), NSException);
    EXPECT_THROW(zorXattrKeysError(url(), &error), NSException);
    EXPECT_THROW(zorSetXattrString(url(), u"v", u"key", &error), NSException);
    EXPECT_THROW(zorRemoveXattrForKey(url(), u"key", &error), NSException);
    EXPECT_FALSE(zorXattrDataForKey(url(), u"key", nullptr));
}

TEST_F(Xattr, NameTheKeyOfARealFailure) {
    const SuppliedPermissionInformation supplied;
    EXPECT_FALSE(zorRemoveXattrForKey(url(), u"key", &error));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 93));
    EXPECT_EQ(entry(error, ZORFailingKey), NSObject(NSString(u"key")));
    file = folder.path() + "/missing";
    EXPECT_FALSE(zorXattrDataForKey(url(), u"key", &error));
    EXPECT_TRUE(zorHasDomain(error, NSPOSIXErrorDomain, 2));
    EXPECT_EQ(entry(error, ZORFailingKey), NSObject(NSString(u"key")));
    EXPECT_FALSE(zorSetXattrString(url(), u"v", u"key", &error));
    EXPECT_EQ(entry(error, ZORFailingKey), NSObject(NSString(u"key")));
}

TEST_F(Xattr, OfALongPathAreReadToo) {
    std::string path = folder.path();
    while (path.size() < 1100) {
        path += "/" + std::string(200, 'd');
        ASSERT_EQ(mkdir(path.c_str(), 0700), 0);
    }
    file = path + "/file";
    writeFile(file, "");
    setSystemValue("user.key", "value");
    EXPECT_EQ(zorXattrStringForKey(url(), u"key", &error).utf8(), "value");
    EXPECT_EQ(zorXattrKeysError(url(), &error).count(), 1u);
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSData+ZOR.h"
#include "ZORFoundation/Source/NSDictionary+ZORPropertyListSerialization.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSObject+ZOR.h"
#include "ZORFoundation/Source/NSPropertyListSerialization+ZOR.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace {

namespace PropertyList = NSPropertyListSerializationZOR;

NSObject entry(const NSError& error, const char16_t* key) {
    return error.userInfo().objectForKey(NSString(key));
}

std::string frames(const NSError& error) {
    std::string joined;
    for (const NSObject& frame : as<NSArray>(entry(error, ZORStackFrames)))
        joined += as<NSString>(frame).utf8() + "|";
    return joined;
}

constexpr const char* kDataFrame =
    "+[NSPropertyListSerialization(ZOR) zorDataFromPropertyList:format:error:] (21)|";
constexpr const char* kParseFrame =
    "+[NSPropertyListSerialization(ZOR) zorPropertyListFromData:options:format:error:] (65)|";
constexpr const char* kReadFrame =
    "+[NSPropertyListSerialization(ZOR) zorPropertyListWithContentsOfURL:options:format:error:] ";
constexpr const char* kWriteFrame =
    "+[NSPropertyListSerialization(ZOR) zorWritePropertyList:toURL:format:error:] ";

class PropertyListFiles : public testing::Test {
protected:
    NSURL at(const std::string& name) const {
        return NSURL::fileURLWithFileSystemRepresentation(folder.path() + "/" + name, false);
    }
    std::string path(const std::string& name) const { return folder.path() + "/" + name; }

    TemporaryFolder folder;
    const NSObject list = NSDictionary{{NSString(u"key"), NSArray{NSNumber::withInt(1)}}};
    const NSObject invalid = NSArray{NSURL::URLWithString(u"http://h/")};
    NSError error;
};

TEST_F(PropertyListFiles, AreDataInTheFormAskedFor) {
    EXPECT_EQ(PropertyList::zorBinaryFrom(list, &error).bytes().substr(0, 8), "bplist00");
    const NSData XML = PropertyList::zorDataFromPropertyList(list, NSPropertyListXMLFormat_v1_0, &error);
    EXPECT_EQ(XML.bytes().substr(0, 5), "<?xml");
    NSPropertyListFormat format{};
    EXPECT_EQ(PropertyList::zorPropertyListFromData(XML, NSPropertyListMutableContainers, &format, &error),
              list);
    EXPECT_EQ(format, NSPropertyListXMLFormat_v1_0);
    EXPECT_EQ(PropertyList::zorReadData(XML, &error), list);
    EXPECT_FALSE(error);
}

TEST_F(PropertyListFiles, ThatCannotBeDataAreTheFailingObject) {
    EXPECT_FALSE(PropertyList::zorDataFromPropertyList(invalid, NSPropertyListXMLFormat_v1_0, &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 3852));
    EXPECT_EQ(entry(error, ZORFailingObject), invalid);
    EXPECT_EQ(frames(error), kDataFrame);
    EXPECT_FALSE(PropertyList::zorBinaryFrom(invalid, nullptr));
}

TEST_F(PropertyListFiles, ComeBackFromTheirFile) {
    EXPECT_TRUE(
        PropertyList::zorWritePropertyList(list, at("f.plist"), NSPropertyListBinaryFormat_v1_0, &error));
    EXPECT_EQ(readFile(path("f.plist")).substr(0, 8), "bplist00");
    NSPropertyListFormat format{};
    EXPECT_EQ(PropertyList::zorReadURL(at("f.plist"), NSPropertyListImmutable, &format, &error), list);
    EXPECT_EQ(format, NSPropertyListBinaryFormat_v1_0);
    EXPECT_EQ(PropertyList::zorPropertyListWithContentsOfURL(at("f.plist"), 0, nullptr, &error), list);
    EXPECT_TRUE(
        PropertyList::zorWritePropertyList(list, at("f.plist"), NSPropertyListXMLFormat_v1_0, &error));
    EXPECT_EQ(PropertyList::zorReadURL(at("f.plist"), &error), list);
    EXPECT_FALSE(error);
}

TEST_F(PropertyListFiles, ThatCannotBeWrittenNameTheListAndTheFile) {
    EXPECT_FALSE(PropertyList::zorWritePropertyList(invalid, at("f"), NSPropertyListXMLFormat_v1_0, &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 3852));
    EXPECT_EQ(entry(error, ZORFailingObject), invalid);
    EXPECT_EQ(entry(error, NSFilePathErrorKey), NSObject(NSString::fromUTF8(path("f"))));
    EXPECT_EQ(frames(error), std::string(kWriteFrame) + "(38)|" + kDataFrame);
    EXPECT_FALSE(PropertyList::zorWritePropertyList(invalid, at("f"), NSPropertyListXMLFormat_v1_0, nullptr));
}

TEST_F(PropertyListFiles, WithoutAFolderKeepThePlatformsError) {
    EXPECT_FALSE(
        PropertyList::zorWritePropertyList(list, at("none/f"), NSPropertyListXMLFormat_v1_0, &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 4));
    EXPECT_EQ(entry(error, NSFilePathErrorKey), NSObject(NSString::fromUTF8(path("none/f"))));
    const std::string all = frames(error);
    EXPECT_TRUE(all.starts_with(std::string(kWriteFrame) + "(41)|-[NSData(ZOR) zorWriteToURL:error:] ("))
        << all;
    EXPECT_FALSE(
        PropertyList::zorWritePropertyList(list, at("none/f"), NSPropertyListXMLFormat_v1_0, nullptr));
}

TEST_F(PropertyListFiles, ThatAreMissingKeepThePlatformsError) {
    EXPECT_FALSE(PropertyList::zorReadURL(at("missing"), &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 260));
    EXPECT_EQ(frames(error), std::string(kReadFrame) + "(74)|");
    EXPECT_FALSE(PropertyList::zorReadURL(at("missing"), nullptr));
    EXPECT_FALSE(PropertyList::zorReadURL(NSURL::URLWithString(u"http://h/list"), &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 262));
}

TEST_F(PropertyListFiles, ThatAreDamagedShowTheirHeadAndPath) {
    writeFile(path("damaged"), std::string(5000, '\x02'));
    EXPECT_FALSE(PropertyList::zorReadURL(at("damaged"), &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 3840));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSData(std::string(1024, '\x02'))));
    EXPECT_EQ(entry(error, NSFilePathErrorKey), NSObject(NSString::fromUTF8(path("damaged"))));
    EXPECT_EQ(frames(error), std::string(kReadFrame) + "(82)|" + kParseFrame);
    EXPECT_FALSE(PropertyList::zorReadURL(at("damaged"), nullptr));
}

TEST_F(PropertyListFiles, DataThatAreShortAreShownWhole) {
    EXPECT_FALSE(PropertyList::zorReadData(NSData(std::string("\x02")), &error));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSData(std::string("\x02"))));
    EXPECT_FALSE(PropertyList::zorReadData(nullptr, &error));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSData(std::string())));
    EXPECT_EQ(frames(error), kParseFrame);
}

TEST_F(PropertyListFiles, AreDictionaries) {
    using NSDictionaryZORPropertyListSerialization::zorReadURL;
    ASSERT_TRUE(PropertyList::zorWritePropertyList(list, at("f"), NSPropertyListBinaryFormat_v1_0, &error));
    EXPECT_EQ(zorReadURL(at("f"), &error), list);
    NSMutableDictionary copy(zorReadURL(at("f"), &error));
    copy.setObject(NSString(u"v"), NSString(u"k"));
    EXPECT_EQ(copy.count(), 2u);
    EXPECT_FALSE(error);
}

TEST_F(PropertyListFiles, OfAnotherClassNameTheExpectedOne) {
    using NSDictionaryZORPropertyListSerialization::zorReadURL;
    writeFile(path("array"), "(a)");
    EXPECT_FALSE(zorReadURL(at("array"), &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 259));
    EXPECT_EQ(entry(error, ZORExpectedType), NSObject(NSClass("NSDictionary")));
    EXPECT_EQ(entry(error, ZORActualType), NSObject(NSClass("NSArray")));
    EXPECT_EQ(entry(error, ZORFailingObject), NSObject(NSArray{NSString(u"a")}));
    EXPECT_EQ(frames(error), "+[NSDictionary(ZORPropertyListSerialization) zorReadURL:error:] (119)|");
    EXPECT_FALSE(zorReadURL(at("array"), nullptr));
}

TEST_F(PropertyListFiles, ThatCannotBeReadKeepTheErrorOfReading) {
    EXPECT_FALSE(NSDictionaryZORPropertyListSerialization::zorReadURL(at("missing"), &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 260));
    EXPECT_EQ(frames(error), "+[NSDictionary(ZORPropertyListSerialization) zorReadURL:error:] (119)|" +
                                 std::string(kReadFrame) + "(74)|");
}

TEST(EnsuringAClass, LooksAtTheObjects) {
    NSError error;
    EXPECT_TRUE(zorEnsureClass(NSString(u"s"), NSClass("NSString"), &error));
    EXPECT_TRUE(zorEnsureClass(NSString(u"s"), NSClass("NSObject"), &error));
    EXPECT_FALSE(error);
    EXPECT_FALSE(zorEnsureClass(NSObject(), NSClass("NSObject"), &error));
    EXPECT_FALSE(error) << "nil keeps the error that made it";
    EXPECT_FALSE(zorEnsureClass(NSNumber::withInt(1), NSClass("NSString"), nullptr));
    EXPECT_FALSE(zorEnsureClass(NSNumber::withInt(1), NSClass("NSString"), &error));
    EXPECT_EQ(entry(error, ZORActualType), NSObject(NSClass("NSNumber")));
}

TEST_F(PropertyListFiles, AreReplacedWhole) {
    writeFile(path("file"), "old and longer");
    ASSERT_EQ(chmod(path("file").c_str(), 0640), 0);
    EXPECT_TRUE(zorWriteToURL(NSData(std::string("new")), at("file"), &error));
    EXPECT_EQ(readFile(path("file")), "new");
    struct stat info {};
    ASSERT_EQ(stat(path("file").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
    EXPECT_TRUE(zorWriteToURL(NSData(std::string()), at("empty"), &error));
    EXPECT_EQ(readFile(path("empty")), "");
    EXPECT_FALSE(error);
}

TEST_F(PropertyListFiles, AreFilesOnly) {
    EXPECT_FALSE(zorWriteToURL(NSData(std::string("x")), NSURL::URLWithString(u"http://h/a"), &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 518));
    EXPECT_FALSE(zorWriteToURL(NSData(std::string("x")), NSURL::URLWithString(u"file:///a%00"), &error));
    EXPECT_TRUE(zorHasDomain(error, NSCocoaErrorDomain, 514));
    EXPECT_FALSE(zorWriteToURL(NSData(std::string("x")), NSURL(), nullptr));
    writeFile(path("file"), "kept");
    EXPECT_FALSE(zorWriteToURL(nullptr, at("file"), &error));
    EXPECT_TRUE(zorHasDomain(error, ZORErrorDomain, ZORRequirementFailedError));
    EXPECT_EQ(readFile(path("file")), "kept");
}

} // namespace

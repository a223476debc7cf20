// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Tests/Platform/Foundation/ArchiveTesting.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

TEST(Unarchiver, ReadsWhatThePlatformWrites) {
    std::vector<std::pair<const char*, NSObject>> archives = genuineArchives();
    archives.insert(archives.end(),
                    {
                        {"NSDictionaryNested", NSDictionary{{str(u"arr"), NSArray{number(1), number(2)}},
                                                            {str(u"data"), NSData(std::string("\1\2"))},
                                                            {str(u"num"), number(7)}}},
                        {"NSMutableArray", NSArray{str(u"x"), number(2)}},
                        {"NSMutableData", NSData(std::string("\xDE\xAD\xBE\xEF"))},
                        {"NSMutableDictionary", NSDictionary{{str(u"key"), number(9)}}},
                        {"NSMutableString", str(u"Hello, world")},
                        {"NestedData", NSArray{NSData(std::string("\1\2")), NSData(std::string("\3\4\5"))}},
                        {"NestedStrings", NSArray{str(u"imm"), str(u"mut")}},
                    });
    for (const auto& [name, expected] : archives) {
        NSError error;
        const NSObject object = NSUnarchiver::unarchiveObjectWithData(genuineArchive(name), &error);
        EXPECT_EQ(object, expected) << name << ": " << debugDescription(error).utf8();
        if (is<NSNumber>(expected)) {
            EXPECT_EQ(as<NSNumber>(object).type(), as<NSNumber>(expected).type()) << name;
        }
    }
}

TEST(Unarchiver, RefusesOtherClasses) {
    for (const char* name :
         {"NSAttributedString", "NSMutableSet", "NSSet", "NestedAttributed", "NestedContainers"}) {
        NSError error;
        EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(genuineArchive(name), &error));
        EXPECT_EQ(error.domain(), str(NSCocoaErrorDomain)) << name;
        EXPECT_EQ(error.code(), 4864) << name;
    }
    EXPECT_EQ(problemOf(kHeader + "84 84 84 05 \"NSSet\" 00"), "Unknown class NSSet, version 0, at byte 29");
}

TEST(Unarchiver, ReadsNilWithoutAnError) {
    NSError error;
    EXPECT_FALSE(readArchive(kHeader + "85", &error));
    EXPECT_FALSE(error);
}

TEST(Unarchiver, ReadsBigEndianArchives) {
    const std::string header =
        "04 0B \"typedstream\" 81 03 E8 84 01 40 84 84 84 07 \"NSArray\" 00 84 84 08 \"NSObject\" 00 85";
    const std::string numbers = "84 01 \"i\" 03 92 84 84 84 08 \"NSNumber\" 00 84 84 07 \"NSValue\" 00 94 84 "
                                "01 \"*\" 84 84 01 \"i\" 95"
                                "82 01 02 03 04 86"
                                "92 84 96 98 84 84 01 \"d\" 9A 83 3F E0 00 00 00 00 00 00 86"
                                "92 84 96 98 84 84 01 \"q\" 9B 87 01 02 03 04 05 06 07 08 86 86";
    EXPECT_EQ(readArchive(header + numbers),
              NSObject(NSArray{NSNumber::withInt(0x01020304), NSNumber::withDouble(0.5),
                               number(0x0102030405060708)}));
}

TEST(Unarchiver, ReadsNumbersOfEveryType) {
    const std::pair<const char*, NSNumber> table[] = {
        {"\"c\" 97 00", NSNumber::withBool(false)},
        {"\"c\" 97 FE", NSNumber::withChar(-2)},
        {"\"C\" 97 FE", NSNumber::withShort(254)},
        {"\"s\" 97 81 00 80", NSNumber::withShort(-32768)},
        {"\"S\" 97 FF", NSNumber::withInt(65535)},
        {"\"i\" 97 82 00 00 00 80", NSNumber::withInt(INT32_MIN)},
        {"\"I\" 97 FF", number(UINT32_MAX)},
        {"\"l\" 97 87 00 00 00 00 00 00 00 80", number(INT64_MIN)},
        {"\"L\" 97 FF", NSNumber::withUnsignedInteger(UINT64_MAX)},
        {"\"Q\" 97 05", number(5)},
        {"\"q\" 97 05", number(5)},
        {"\"f\" 97 07", NSNumber::withFloat(7)},
        {"\"f\" 97 83 00 00 00 3F", NSNumber::withFloat(0.5f)},
        {"\"d\" 97 82 00 00 00 80", NSNumber::withDouble(-2147483648.0)},
    };
    const std::string start = kHeader + "84 84 84 08 \"NSNumber\" 00 84 84 07 \"NSValue\" 00 84 84 08 "
                                        "\"NSObject\" 00 85 84 01 \"*\" 84 84 01";
    for (const auto& [form, expected] : table) {
        const NSNumber found = as<NSNumber>(readArchive(start + form + "86"));
        EXPECT_EQ(NSObject(found), NSObject(expected)) << form;
        EXPECT_EQ(found.type(), expected.type()) << form;
    }
    for (const char* form :
         {"\"s\" 97 82 00 80 00 00", "\"i\" 97 87 00 00 00 80 00 00 00 00", "\"S\" 97 82 00 00 01 00",
          "\"q\" 97 83 00 00 00 00", "\"q\" 97 85", "\"d\" 97 84", "\"x\" 97 01", "\"i\" 96 01"}) {
        EXPECT_NE(problemOf(start + form + "86"), "") << form;
    }
}

TEST(Unarchiver, ReadsBackEverythingThatIsArchived) {
    const NSURL base = NSURL::URLWithString(u"http://h/a/");
    NSError underlying(NSPOSIXErrorDomain, 2);
    NSError error(u"D", -5,
                  {{str(NSUnderlyingErrorKey), underlying},
                   {str(u"again"), NSArray{underlying, base, NSURL::URLWithString(u"b", base)}},
                   {str(u"point"), NSValue(NSPoint{1.5, -2})},
                   {str(u"size"), NSValue(NSSize{3, INFINITY})},
                   {str(u"rect"), NSValue(NSRect{{1, 2}, {3, 4}})},
                   {str(u"range"), NSValue(NSRange{1, UINT64_MAX})},
                   {str(u"null"), NSNull::null()},
                   {str(u"text"), str(u"\xDC80 \xD800 \U0001F600 \u00E9")},
                   {str(u"data"), NSData(std::string(300, '\xFF'))},
                   {str(u"empty"), NSDictionary::dictionary()},
                   {number(5), NSNumber::withUnsignedInteger(UINT64_MAX)}});
    const NSData archive = NSArchiver::archivedDataWithRootObject(error);
    const NSObject found = NSUnarchiver::unarchiveObjectWithData(archive.bytes(), nullptr);
    EXPECT_EQ(found, NSObject(error));
    const NSDictionary userInfo = as<NSError>(found).userInfo();
    EXPECT_EQ(userInfo.objectForKey(str(NSUnderlyingErrorKey)).body(),
              userInfo.get<NSArray>(str(u"again")).objectAtIndex(0).body());
    EXPECT_EQ(NSObject(NSArchiver::archivedDataWithRootObject(found)), NSObject(archive));
}

TEST(Unarchiver, ReadsErrorsWithoutADomain) {
    EXPECT_EQ(readArchive(rootOf("NSError") + "84 03 \"i@@\" 05 85 85 86"), NSObject(NSError(nullptr, 5)));
}

} // namespace

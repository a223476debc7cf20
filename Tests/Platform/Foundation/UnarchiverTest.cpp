// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"
#include "Tests/Support/TemporaryFolder.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

const std::string kHeader = "04 0B \"streamtyped\" 81 E8 03 84 01 40";
// Strings: 0 "@", 1 the class, 2 "NSObject". Objects: 0 the root, 1 and 2 its classes.
std::string rootOf(const std::string& name, int version = 0) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string length{digits[name.size() >> 4], digits[name.size() & 15]};
    return kHeader + "84 84 84" + length + "\"" + name + "\" 0" + digits[version] +
           "84 84 08 \"NSObject\" 00 85";
}

NSObject readArchive(const std::string& notation, NSError* error = nullptr) {
    return NSUnarchiver::unarchiveObjectWithData(bytesOf(notation), error);
}

std::string problemOf(const std::string& notation) {
    NSError error;
    EXPECT_FALSE(readArchive(notation, &error)) << notation;
    EXPECT_EQ(error.code(), error ? 4864 : 0);
    return debugDescription(error).utf8();
}

NSNumber number(int64_t value) { return NSNumber::withInteger(value); }

TEST(Unarchiver, ReadsWhatThePlatformWrites) {
    const NSURL url = NSURL::URLWithString(u"https://example.com/path?q=1");
    const NSURL page = NSURL::URLWithString(u"page.html", NSURL::URLWithString(u"https://example.com/dir/"));
    const NSArray none((std::vector<NSObject>()));
    const std::pair<const char*, NSObject> table[] = {
        {"NSArray", NSArray{str(u"a"), number(1), str(u"b")}},
        {"NSArrayEmpty", none},
        {"NSArrayNested", NSArray{str(u"top"), NSArray{number(1), number(2)}}},
        {"NSArrayWithNull", NSArray{str(u"x"), NSNull::null(), str(u"y")}},
        {"NSData", NSData(std::string("\xDE\xAD\xBE\xEF\0\x7F", 6))},
        {"NSDate", NSDate(21692800.0)},
        {"NSDateFractional", NSDate(700000000.523)},
        {"NSDictionary", NSDictionary{{str(u"k1"), number(1)}, {str(u"k2"), str(u"v")}}},
        {"NSDictionaryNested", NSDictionary{{str(u"arr"), NSArray{number(1), number(2)}},
                                            {str(u"data"), NSData(std::string("\1\2"))},
                                            {str(u"num"), number(7)}}},
        {"NSMutableArray", NSArray{str(u"x"), number(2)}},
        {"NSMutableData", NSData(std::string("\xDE\xAD\xBE\xEF"))},
        {"NSMutableDictionary", NSDictionary{{str(u"key"), number(9)}}},
        {"NSMutableString", str(u"Hello, world")},
        {"NSString", str(u"Hello, world")},
        {"NSURL", url},
        {"NSURLRelative", page},
        {"NestedData", NSArray{NSData(std::string("\1\2")), NSData(std::string("\3\4\5"))}},
        {"NestedScalars", NSArray{NSDate(21692800.0), url, page, NSNull::null()}},
        {"NestedStrings", NSArray{str(u"imm"), str(u"mut")}},
        {"NumberBool", NSNumber::withBool(true)},
        {"NumberDouble", NSNumber::withDouble(100.5)},
        {"NumberFloat", NSNumber::withFloat(3.5f)},
        {"NumberInt", NSNumber::withInt(42)},
        {"NumberInt64", number(-9000000000)},
        {"b-NSArrayEmpty", none},
        {"b-NSArrayWithBool", NSArray{NSNumber::withBool(true), NSNumber::withBool(false)}},
        {"b-NSArrayWithMixedType",
         NSArray{str(u"abc"), number(123), NSNumber::withDouble(0.5), NSNumber::withBool(true)}},
        {"b-NSArrayWithNSNumber", NSArray{number(0), number(1), number(2), number(3), number(4), number(5)}},
        {"b-NSArrayWithNSString", NSArray{str(u"abc"), str(u"def"), str(u"012")}},
        {"b-NSArrayWithNestedArray",
         NSArray{str(u"first"), NSArray{str(u"second"), NSArray{str(u"third"), number(3)}, number(2)},
                 number(1)}},
        {"b-NSDictionary", NSDictionary{{str(u"key"), number(123)}}},
        {"b-NSNumberWith1digit", number(1)},
        {"b-NSNumberWith2digits", number(22)},
        {"b-NSNumberWith3digits", number(333)},
        {"b-NSNumberWith4digits", number(4444)},
        {"b-NSNumberWith5digits", number(55555)},
        {"b-NSNumberWithFloat", NSNumber::withDouble(0.1358)},
        {"b-NSNumberWithMinus2digits", number(-22)},
        {"b-NSNumberWithMinus5digits", number(-55555)},
        {"b-NSNumberWithULongLong", NSNumber::withUnsignedInteger(18446744073709551613u)},
        {"b-NSString", str(u"abcdefgABCDEFG!?@[]/+*^&-_")},
        {"b-NSStringNil", str(u"")},
    };
    for (const auto& [name, expected] : table) {
        NSError error;
        const NSObject object = NSUnarchiver::unarchiveObjectWithData(
            readFile(TEST_DATA_FOLDER "/Archives/" + std::string(name)), &error);
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
        EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(
            readFile(TEST_DATA_FOLDER "/Archives/" + std::string(name)), &error));
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

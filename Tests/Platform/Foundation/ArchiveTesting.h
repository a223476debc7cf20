// SPDX-License-Identifier: Apache-2.0
//
// Archives for the tests of writing and reading them: those in the test data, and ones put together in
// hexadecimal notation.
#pragma once

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

// What every archive begins with.
inline const std::string kHeader = "04 0B \"streamtyped\" 81 E8 03 84 01 40";

// The start of an archive of one object of a class right below the root class, and its version.
// Strings: 0 "@", 1 the class, 2 "NSObject". Objects: 0 the root, 1 and 2 its classes.
inline std::string rootOf(const std::string& name, int version = 0) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string length{digits[name.size() >> 4], digits[name.size() & 15]};
    return kHeader + "84 84 84" + length + "\"" + name + "\" 0" + digits[version] +
           "84 84 08 \"NSObject\" 00 85";
}

inline NSObject readArchive(const std::string& notation, NSError* error = nullptr) {
    return NSUnarchiver::unarchiveObjectWithData(bytesOf(notation), error);
}

inline std::string problemOf(const std::string& notation) {
    NSError error;
    EXPECT_FALSE(readArchive(notation, &error)) << notation;
    EXPECT_EQ(error.code(), error ? 4864 : 0);
    return debugDescription(error).utf8();
}

inline NSNumber number(int64_t value) { return NSNumber::withInteger(value); }

// An archive of the test data, as the platform wrote it.
inline std::string genuineArchive(const std::string& name) {
    return readFile(TEST_DATA_FOLDER "/Archives/" + name);
}

// The names of such archives, and the objects that were written to them in this form.
inline std::vector<std::pair<const char*, NSObject>> genuineArchives() {
    const NSURL url = NSURL::URLWithString(u"https://example.com/path?q=1");
    const NSURL page = NSURL::URLWithString(u"page.html", NSURL::URLWithString(u"https://example.com/dir/"));
    const NSArray none((std::vector<NSObject>()));
    return {
        {"NSArray", NSArray{str(u"a"), number(1), str(u"b")}},
        {"NSArrayEmpty", none},
        {"NSArrayNested", NSArray{str(u"top"), NSArray{number(1), number(2)}}},
        {"NSArrayWithNull", NSArray{str(u"x"), NSNull::null(), str(u"y")}},
        {"NSData", NSData(std::string("\xDE\xAD\xBE\xEF\0\x7F", 6))},
        {"NSDate", NSDate(21692800.0)},
        {"NSDateFractional", NSDate(700000000.523)},
        {"NSDictionary", NSDictionary{{str(u"k2"), str(u"v")}, {str(u"k1"), number(1)}}},
        {"NSString", str(u"Hello, world")},
        {"NSURL", url},
        {"NSURLRelative", page},
        {"NestedScalars", NSArray{NSDate(21692800.0), url, page, NSNull::null()}},
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
}

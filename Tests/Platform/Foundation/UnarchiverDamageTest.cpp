// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Tests/Platform/Foundation/ArchiveTesting.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

TEST(Unarchiver, RefusesEveryArchiveThatIsCut) {
    for (const char* name : {"NSURLRelative", "NestedScalars", "b-NSArrayWithMixedType", "NSMutableData"}) {
        const std::string whole = genuineArchive(name);
        for (size_t length = 0; length < whole.size(); ++length) {
            NSError error;
            EXPECT_FALSE(
                NSUnarchiver::unarchiveObjectWithData(std::string_view(whole).substr(0, length), &error))
                << length;
            EXPECT_TRUE(error) << length;
        }
    }
}

TEST(Unarchiver, RefusesOtherHeaders) {
    EXPECT_EQ(problemOf(""), "Unexpected end at byte 0");
    EXPECT_EQ(problemOf("03 0B \"streamtyped\" 81 E8 03 84 01 40 85"), "No archive at byte 13");
    EXPECT_NE(problemOf("04 0B \"streamtypes\" 81 E8 03 84 01 40 85"), "");
    EXPECT_NE(problemOf("04 0A \"streamtype\" 81 E8 03 84 01 40 85"), "");
    EXPECT_NE(problemOf("04 0B \"streamtyped\" 85 84 01 40 85"), "");
    EXPECT_EQ(problemOf("04 0B \"streamtyped\" 81 E8 03 84 01 \"i\" 01"),
              "Values of type i instead of @ at byte 19");
}

TEST(Unarchiver, RefusesDamagedClasses) {
    for (const char* object : {
             "84 85",                                                   // no class
             "84 84 84 08 \"NSString\" 02 84 84 08 \"NSObject\" 00 85", // another version
             "84 84 84 08 \"NSString\" 01 85",                          // no superclass
             "84 84 84 08 \"NSString\" 01 93",                          // its own superclass
             "84 84 84 08 \"NSString\" 01 92",                          // an object for a class
             "84 84 84 08 \"NSString\" 01 94",                          // nothing for a class
             "84 84 84 08 \"NSString\" 01 84 84 07 \"NSValue\" 00 84 84 08 \"NSObject\" 00 85",
             "84 84 84 08 \"NSObject\" 00 84 84 08 \"NSObject\" 00 85",
             "84 84 84 08 \"NSObject\" 00 85 86", // of the root class
             "84 84 92 00",                       // a class named "@"
             "84 92",
         }) {
        EXPECT_NE(problemOf(kHeader + object), "") << object;
    }
}

TEST(Unarchiver, RefusesDamagedObjects) {
    const std::string string = "84 84 84 08 \"NSString\" 01 94 84 01 \"+\" 01 \"s\" 86";
    const std::string table[] = {
        rootOf("NSString", 1) + "84 01 \"+\" 01 FF 86",                      // not UTF-8
        rootOf("NSString", 1) + "84 01 \"+\" FF 86",                         // a negative length
        rootOf("NSString", 1) + "84 01 \"+\" 87 FF FF FF FF FF FF FF 7F 86", // a length beyond the end
        rootOf("NSString", 1) + "84 01 \"+\" 01 \"s\" 85",                   // no end
        rootOf("NSString", 1) + "84 01 \"*\" 01 \"s\" 86",
        rootOf("NSString", 1) + "92 01 \"s\" 86",      // group "@"
        rootOf("NSString", 1) + "95 01 \"s\" 86",      // no such string
        rootOf("NSArray") + "84 01 \"i\" 01 92 85 86", // nil inside
        rootOf("NSArray") + "84 01 \"i\" 01 92 92 86", // itself inside
        rootOf("NSArray") + "84 01 \"i\" 01 92 93 86", // a class inside
        rootOf("NSArray") + "84 01 \"i\" 01 92 95 86", // nothing
        rootOf("NSArray") + "84 01 \"i\" 01 92 82 FF FF FF 7F 86",
        rootOf("NSArray") + "84 01 \"i\" 01 92 87 FF FF FF FF FF FF FF 7F 86",
        rootOf("NSArray") + "84 01 \"i\" FF 86",
        rootOf("NSArray") + "84 01 \"i\" 82 FF FF FF 7F 86",
        rootOf("NSArray") + "84 01 \"i\" 02 92 " + string + "86",
        rootOf("NSArray") + "84 01 \"i\" 00 01",
        rootOf("NSDictionary") + "84 01 \"i\" 01 92 85 92 " + string + "86",
        rootOf("NSDictionary") + "84 01 \"i\" 01 92 " + string + "92 85 86",
        rootOf("NSDictionary") + "84 01 \"i\" 01 92 92 92 " + string + "86",
        rootOf("NSDictionary") + "84 01 \"i\" 01 92 84 93 95 00 86 92 " + string +
            "86", // a dictionary as a key
        rootOf("NSData") + "84 01 \"i\" 02 84 04 \"[3c]\" 01 02 03 86",
        rootOf("NSData") + "84 01 \"i\" 02 84 04 \"[2c]\" 01",
        rootOf("NSData") + "84 01 \"i\" 7F 84 06 \"[127c]\" 01 86",
        rootOf("NSDate") + "84 01 \"d\" 83 00 00 00 00 86",
        rootOf("NSDate") + "84 01 \"d\" 88 86",
        rootOf("NSURL") + "84 01 \"c\" 00 92 85 86",
        rootOf("NSURL") + "84 01 \"c\" 01 92 " + string + "92 95 86",  // a string as the base
        rootOf("NSURL") + "84 01 \"c\" 01 92 92 92 " + string + "86",  // itself as the base
        rootOf("NSURL") + "84 01 \"c\" 00 92 84 93 94 00 92 95 86 86", // a URL as the text
        rootOf("NSValue") + "84 01 \"*\" 85",
        rootOf("NSValue") + "84 01 \"*\" 84 84 01 \"q\" 96 01 86",
        rootOf("NSValue") + "84 01 \"*\" 92", // an object for a C string
        rootOf("NSValue") + "84 01 \"*\" 84 84 0C \"{CGPoint=dd}\" 92 01 02 86",
        rootOf("NSError") + "84 03 \"i@@\" 00 92 85 86",
        rootOf("NSError") + "84 03 \"i@@\" 00 85 92 86",
        rootOf("NSError") + "84 03 \"i@@\" 00 85 " + string + "86",
        rootOf("NSError") + "84 03 \"i@@\" 87 00 00 00 80 00 00 00 00 85 85 86",
        rootOf("NSError") + "84 02 \"i@\" 00 85 86",
    };
    for (const std::string& notation : table) EXPECT_NE(problemOf(notation), "") << notation;
}

TEST(Unarchiver, RefusesKeysThatCannotBeFoundAgain) {
    for (const NSObject& key :
         {NSObject(NSNumber::withDouble(NAN)), NSObject(NSDate(NAN)), NSObject(NSError(u"D", 1)),
          NSObject(NSArray{str(u"a")}), NSObject(NSValue(NSPoint{1, 2})),
          NSObject(NSURL::URLWithString(u"a", NSURL::URLWithString(u"http://h/")))}) {
        NSError error;
        const NSData archive = NSArchiver::archivedDataWithRootObject(NSDictionary{{key, str(u"v")}});
        EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(archive.bytes(), &error));
        EXPECT_EQ(debugDescription(error).utf8().substr(0, 33), "Dictionary with an unusable key a");
    }
    for (const NSObject& key : {NSObject(number(1)), NSObject(NSDate(1)), NSObject(NSData(std::string("x"))),
                                NSObject(NSNull::null()), NSObject(NSURL::URLWithString(u"http://h/"))}) {
        const NSDictionary dictionary{{key, str(u"v")}};
        EXPECT_EQ(NSUnarchiver::unarchiveObjectWithData(
                      NSArchiver::archivedDataWithRootObject(dictionary).bytes(), nullptr),
                  NSObject(dictionary));
    }
}

TEST(Unarchiver, RefusesTooManyNestedObjects) {
    auto comesBack = [](const NSObject& object) {
        return bool(NSUnarchiver::unarchiveObjectWithData(
            NSArchiver::archivedDataWithRootObject(object).bytes(), nullptr));
    };
    EXPECT_TRUE(comesBack(nestedArrays(512)));
    EXPECT_FALSE(comesBack(nestedArrays(513)));
    std::string deep = rootOf("NSArray") + "84 01 \"i\" 01";
    for (int i = 0; i < 100000; ++i) deep += "92 84 93 95 01";
    EXPECT_EQ(problemOf(deep).substr(0, 23), "Too many nested objects");

    // The second element holds 300 arrays around the first, which holds 300 more.
    NSObject inner = nestedArrays(300), outer = inner;
    for (int i = 0; i < 300; ++i) outer = NSArray{outer};
    EXPECT_FALSE(comesBack(NSArray{inner, outer}));
}

TEST(Unarchiver, RefusesAShortArchiveOfAHugeTree) {
    auto doubled = [](int times) {
        NSArray list{str(u"leaf")};
        for (int i = 0; i < times; ++i) list = NSArray{list, list};
        return NSArchiver::archivedDataWithRootObject(list);
    };
    NSError error;
    EXPECT_TRUE(NSUnarchiver::unarchiveObjectWithData(doubled(20).bytes(), nullptr));
    EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(doubled(100).bytes(), &error));
    EXPECT_EQ(debugDescription(error).utf8().substr(0, 16), "Too many objects");

    const NSString text = std::u16string(100000, u'x');
    const NSArray texts(std::vector<NSObject>(100000, text));
    EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(NSArchiver::archivedDataWithRootObject(texts).bytes(),
                                                       nullptr));
}

TEST(Unarchiver, HoldsNoMoreThanItReadsForCountsThatLie) {
    // Five hundred arrays in one another, each of which claims a million elements.
    std::string bytes = bytesOf(rootOf("NSArray") + "84 01 \"i\" 82 40 42 0F 00");
    for (int i = 0; i < 500; ++i) bytes += bytesOf("92 84 93 95 82 40 42 0F 00");
    bytes += std::string(3000000, '\x85');
    EXPECT_FALSE(NSUnarchiver::unarchiveObjectWithData(bytes, nullptr));
}

} // namespace

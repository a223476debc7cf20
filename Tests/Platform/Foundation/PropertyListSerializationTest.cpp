// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"

#include <gtest/gtest.h>

namespace {

class OtherBody final : public ObjectBody {
public:
    OtherBody() : ObjectBody(NSKind::other) {}
    std::string_view className() const override { return "Other"; }
    std::u16string description(unsigned) const override { return u""; }
};

struct Invalid {
    NSObject list;
    const char* reason;
};

std::vector<Invalid> invalidLists() {
    const NSObject url = NSURL::URLWithString(u"http://h/");
    return {
        {nullptr, "property lists cannot contain NULL"},
        {url, "property lists cannot contain objects of type 'CFURL'"},
        {NSNull::null(), "property lists cannot contain objects of type 'CFNull'"},
        {NSError(u"D", 1), "property lists cannot contain objects of type 'CFError'"},
        {NSValue(NSSize{1, 2}), "property lists cannot contain objects of type 'CFType'"},
        {NSClass("NSString"), "property lists cannot contain objects of type 'CFType'"},
        {NSObject(new OtherBody), "property lists cannot contain objects of type 'CFType'"},
        {NSArray{str(u"a"), NSArray{url}}, "property lists cannot contain objects of type 'CFURL'"},
        {NSDictionary{{str(u"k"), NSNull::null()}}, "property lists cannot contain objects of type 'CFNull'"},
        {NSDictionary{{NSNumber::withInt(1), str(u"v")}},
         "property list dictionaries may only have keys which are CFStrings, not 'CFNumber'"},
        {NSDictionary{{NSNumber::withBool(true), str(u"v")}},
         "property list dictionaries may only have keys which are CFStrings, not 'CFBoolean'"},
        {NSDictionary{{NSDate(0.0), str(u"v")}},
         "property list dictionaries may only have keys which are CFStrings, not 'CFDate'"},
        {NSDictionary{{NSData(std::string()), str(u"v")}},
         "property list dictionaries may only have keys which are CFStrings, not 'CFData'"},
        {NSDictionary{{url, str(u"v")}},
         "property list dictionaries may only have keys which are CFStrings, not 'CFURL'"},
        {NSDictionary{{NSArray{str(u"k")}, str(u"v")}},
         "property list dictionaries may only have keys which are CFStrings, not 'CFArray'"},
        {nestedArrays(513), "property lists cannot contain more than 512 nested containers"},
    };
}

TEST(PropertyListSerialization, SaysWhyAListCannotBeWritten) {
    for (const Invalid& row : invalidLists()) {
        for (auto format : {NSPropertyListXMLFormat_v1_0, NSPropertyListBinaryFormat_v1_0}) {
            const std::string text =
                "Property list invalid for format: " + std::to_string(format) + " (" + row.reason + ")";
            NSString description;
            EXPECT_FALSE(dataFromPropertyList(row.list, format, &description)) << text;
            EXPECT_EQ(description.utf8(), text);
            EXPECT_FALSE(dataFromPropertyList(row.list, format, nullptr));
            NSError error;
            EXPECT_FALSE(dataWithPropertyList(row.list, format, &error));
            EXPECT_EQ(error.domain(), str(NSCocoaErrorDomain));
            EXPECT_EQ(error.code(), NSPropertyListWriteInvalidError);
            EXPECT_EQ(debugDescription(error).utf8(), text);
        }
    }
}

TEST(PropertyListSerialization, WritesNoOtherFormats) {
    for (int format : {1, 0, 7, 101}) {
        NSString description;
        NSError error;
        EXPECT_FALSE(dataFromPropertyList(str(u"a"), NSPropertyListFormat(format), &description));
        EXPECT_EQ(description.utf8(), "Property lists cannot be written in format " + std::to_string(format));
        EXPECT_FALSE(dataWithPropertyList(str(u"a"), NSPropertyListFormat(format), &error));
        EXPECT_EQ(error.code(), NSPropertyListWriteStreamError);
    }
}

TEST(PropertyListSerialization, LeavesTheErrorAloneOnSuccess) {
    NSString description = u"before";
    NSError error(u"before", 1);
    EXPECT_TRUE(dataFromPropertyList(nestedArrays(512), NSPropertyListBinaryFormat_v1_0, &description));
    EXPECT_TRUE(dataWithPropertyList(nestedArrays(512), NSPropertyListXMLFormat_v1_0, &error));
    EXPECT_TRUE(propertyListWithData("a", nullptr, &error));
    EXPECT_EQ(description.utf8(), "before");
    EXPECT_EQ(error.code(), 1);
}

TEST(PropertyListSerialization, ChecksSharedContainersOnce) {
    NSArray list{str(u"leaf")};
    for (int i = 1; i < 500; ++i) list = NSArray{list, list};
    EXPECT_TRUE(dataFromPropertyList(list, NSPropertyListBinaryFormat_v1_0, nullptr));
}

TEST(PropertyListSerialization, CountsTheNestingOfSharedContainers) {
    NSObject inner = nestedArrays(300), outer = inner;
    for (int i = 0; i < 300; ++i) outer = NSArray{outer};
    EXPECT_FALSE(dataFromPropertyList(NSArray{inner, outer}, NSPropertyListBinaryFormat_v1_0, nullptr));
}

TEST(PropertyListSerialization, TriesTheFormsInTheirOrder) {
    const NSDictionary list{{str(u"k"), str(u"v")}};
    const std::string binary(dataFromPropertyList(list, NSPropertyListBinaryFormat_v1_0, nullptr).bytes());
    const std::string xml(dataFromPropertyList(list, NSPropertyListXMLFormat_v1_0, nullptr).bytes());
    for (const auto& [bytes, expected] :
         {std::pair(binary, NSPropertyListBinaryFormat_v1_0), std::pair(xml, NSPropertyListXMLFormat_v1_0),
          std::pair(std::string("{k=v;}"), NSPropertyListOpenStepFormat)}) {
        NSPropertyListFormat format{};
        EXPECT_EQ(propertyListWithData(bytes, &format, nullptr), NSObject(list));
        EXPECT_EQ(format, expected);
    }
}

TEST(PropertyListSerialization, ReadsWordsAndNothing) {
    EXPECT_EQ(propertyListWithData("hello", nullptr, nullptr), NSObject(str(u"hello")));
    EXPECT_EQ(propertyListWithData(" \n", nullptr, nullptr), NSObject(NSDictionary::dictionary()));
    EXPECT_EQ(propertyListWithData("bplist00", nullptr, nullptr), NSObject(str(u"bplist00")));
    EXPECT_EQ(propertyListWithData(std::string_view("\xFF\xFE(\0a\0)\0", 8), nullptr, nullptr),
              NSObject(NSArray{str(u"a")}));
}

TEST(PropertyListSerialization, ReportsBothTextFormsWhenNoneReads) {
    NSError error;
    NSPropertyListFormat format = NSPropertyListXMLFormat_v1_0;
    EXPECT_FALSE(propertyListWithData("bplist00 damaged", &format, &error));
    EXPECT_EQ(error.domain(), str(NSCocoaErrorDomain));
    EXPECT_EQ(error.code(), NSPropertyListReadCorruptError);
    EXPECT_EQ(debugDescription(error).utf8(), "Unexpected character b at line 1");
    NSError oldStyle = error.userInfo().get<NSError>(str(u"kCFPropertyListOldStyleParsingError"));
    EXPECT_EQ(oldStyle.code(), NSPropertyListReadCorruptError);
    EXPECT_EQ(debugDescription(oldStyle).utf8(), "No ';' behind a dictionary's entry at line 1");
    EXPECT_EQ(format, NSPropertyListXMLFormat_v1_0);
}

TEST(PropertyListSerialization, RefusesNoBytes) {
    NSError error;
    EXPECT_FALSE(propertyListWithData("", nullptr, &error));
    EXPECT_EQ(error.code(), NSPropertyListReadCorruptError);
    EXPECT_EQ(debugDescription(error).utf8(), "Cannot parse a NULL or zero-length data");
    EXPECT_FALSE(propertyListWithData({}, nullptr, nullptr));
}

TEST(PropertyListSerialization, RefusesBytesThatAreNoText) {
    NSError error;
    EXPECT_FALSE(propertyListWithData("\xFF\xFD", nullptr, &error));
    EXPECT_EQ(error.code(), NSPropertyListReadCorruptError);
    EXPECT_TRUE(debugDescription(error));
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORResultRecord.h"

#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <gtest/gtest.h>

namespace {

NSString s(const char16_t* text) { return text; }

std::optional<ZORResultRecord> recordOf(const NSObject& list, NSError* error = nullptr,
                                        NSPropertyListFormat format = NSPropertyListBinaryFormat_v1_0) {
    return ZORResultRecord::recordWithData(dataFromPropertyList(list, format, nullptr).bytes(), error);
}

const NSDictionary& wholeSuccess() {
    static const NSDictionary list{
        {s(u"string"), NSString(std::u16string(u"a\0\xD800", 3))},
        {s(u"title"), s(u"T")},
        {s(u"author"), s(u"A")},
        {s(u"partsCount"), NSNumber::withInt(12)},
        {s(u"url"), s(u"http://h/")},
        {s(u"otherAttributes"), NSDictionary{{s(u"SpotlightKeywords"), s(u"(\n)")}}}};
    return list;
}

TEST(ResultRecord, HoldsASuccess) {
    auto record = recordOf(wholeSuccess());
    ASSERT_TRUE(record);
    EXPECT_EQ(record->kind, ZORResultRecord::Kind::success);
    EXPECT_EQ(record->string.text(), std::u16string(u"a\0\xD800", 3));
    EXPECT_EQ(record->title, s(u"T"));
    EXPECT_EQ(record->author, s(u"A"));
    EXPECT_EQ(record->partsCount, 12);
    EXPECT_EQ(record->url, s(u"http://h/"));
    EXPECT_EQ(record->otherAttributes.count(), 1u);
    EXPECT_EQ(record->text(), s(u""));
}

TEST(ResultRecord, IsReadInEveryForm) {
    EXPECT_TRUE(recordOf(wholeSuccess(), nullptr, NSPropertyListXMLFormat_v1_0));
    auto record = ZORResultRecord::recordWithData("{ string = text; }", nullptr);
    ASSERT_TRUE(record);
    EXPECT_EQ(record->string, s(u"text"));
}

TEST(ResultRecord, TakesMissingAndOddValuesOfASuccessAsEmpty) {
    const NSDictionary odd{{s(u"string"), s(u"")},
                           {s(u"title"), NSNumber::withInt(1)},
                           {s(u"partsCount"), s(u"12")},
                           {s(u"otherAttributes"), NSArray{s(u"a")}}};
    for (const NSDictionary& list : {NSDictionary{{s(u"string"), s(u"")}}, odd}) {
        auto record = recordOf(list);
        ASSERT_TRUE(record);
        EXPECT_EQ(record->kind, ZORResultRecord::Kind::success);
        EXPECT_EQ(record->string, s(u""));
        EXPECT_EQ(record->title, s(u""));
        EXPECT_EQ(record->author, s(u""));
        EXPECT_EQ(record->url, s(u""));
        EXPECT_EQ(record->partsCount, 0);
        EXPECT_EQ(record->otherAttributes, NSDictionary::dictionary());
    }
}

TEST(ResultRecord, HoldsNegativeParts) {
    for (const NSNumber& parts : {NSNumber::withInt(-1), NSNumber::withInteger(0xFFFFFFFF)}) {
        EXPECT_EQ(recordOf(NSDictionary{{s(u"string"), s(u"")}, {s(u"partsCount"), parts}})->partsCount, -1);
    }
}

TEST(ResultRecord, HoldsAnError) {
    const NSError error(NSCocoaErrorDomain, 4, {{s(NSFilePathErrorKey), s(u"/tmp/nope.rtf")}});
    auto record = recordOf(NSDictionary{{s(u"errorData"), NSArchiver::archivedDataWithRootObject(error)},
                                        {s(u"errorString"), s(u"no such file")}});
    ASSERT_TRUE(record);
    EXPECT_EQ(record->kind, ZORResultRecord::Kind::error);
    EXPECT_EQ(record->error, error);
    EXPECT_FALSE(record->errorProblem);
    EXPECT_EQ(record->errorString, s(u"no such file"));
    EXPECT_EQ(record->text(), s(u"no such file"));
}

TEST(ResultRecord, HoldsNoErrorWhenNoneWasReported) {
    for (const NSData& data : {NSArchiver::archivedDataWithRootObject(nullptr), NSData(std::string())}) {
        auto record = recordOf(NSDictionary{{s(u"errorData"), data}, {s(u"errorString"), s(u"")}});
        ASSERT_TRUE(record);
        EXPECT_EQ(record->kind, ZORResultRecord::Kind::error);
        EXPECT_FALSE(record->error);
        EXPECT_FALSE(record->errorProblem);
    }
}

TEST(ResultRecord, KeepsTheSentenceOfAnErrorThatCannotBeRead) {
    auto record = recordOf(
        NSDictionary{{s(u"errorData"), NSData(std::string("damaged"))}, {s(u"errorString"), s(u"why")}});
    ASSERT_TRUE(record);
    EXPECT_FALSE(record->error);
    EXPECT_EQ(record->errorProblem.code(), 4864);
    EXPECT_EQ(record->errorString, s(u"why"));
    EXPECT_TRUE(recordOf(NSDictionary{{s(u"errorString"), s(u"why")}}));
    EXPECT_TRUE(
        recordOf(NSDictionary{{s(u"errorData"), NSArchiver::archivedDataWithRootObject(s(u"text"))}}));
}

TEST(ResultRecord, HoldsAFallback) {
    auto record = recordOf(NSDictionary{{s(u"error"), s(u"why")}});
    ASSERT_TRUE(record);
    EXPECT_EQ(record->kind, ZORResultRecord::Kind::fallback);
    EXPECT_EQ(record->fallbackText, s(u"why"));
    EXPECT_EQ(record->text(), s(u"why"));
}

TEST(ResultRecord, IsNothingElse) {
    NSError error;
    EXPECT_FALSE(ZORResultRecord::recordWithData("", &error));
    EXPECT_EQ(error.code(), 3840);
    EXPECT_FALSE(ZORResultRecord::recordWithData("bplist00 damaged", &error));
    EXPECT_EQ(error.code(), 3840);
    for (const NSObject& list :
         {NSObject(s(u"text")), NSObject(NSArray{s(u"string")}), NSObject(NSDictionary::dictionary()),
          NSObject(NSDictionary{{s(u"string"), NSNumber::withInt(1)}}),
          NSObject(NSDictionary{{s(u"error"), NSNumber::withInt(1)}})}) {
        error = nullptr;
        EXPECT_FALSE(recordOf(list, &error));
        EXPECT_EQ(error.code(), 259);
        EXPECT_FALSE(recordOf(list));
    }
}

} // namespace

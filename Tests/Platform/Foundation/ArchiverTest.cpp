// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArchiver.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/StringFormat.h"
#include "Tests/Platform/Foundation/ArchiveTesting.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

std::string archive(const NSObject& object) {
    return std::string(NSArchiver::archivedDataWithRootObject(object).bytes());
}

// What stands behind the header and the chain of a class right below the root class.
std::string contentsOf(const NSObject& object) {
    const std::string bytes = archive(object), root = bytesOf("84 84 08 \"NSObject\" 00 85");
    const size_t end = bytes.find(root);
    return end == std::string::npos ? bytes : bytes.substr(end + root.size());
}

TEST(Archiver, WritesWhatThePlatformWrites) {
    for (const auto& [name, object] : genuineArchives()) {
        EXPECT_EQ(hex(archive(object)), hex(genuineArchive(name))) << name;
    }
}

TEST(Archiver, WritesDictionariesInTheirOrder) {
    const std::string genuine = genuineArchive("NSDictionaryNested");
    const NSObject list = NSUnarchiver::unarchiveObjectWithData(genuine, nullptr);
    EXPECT_EQ(list, NSObject(NSDictionary{{str(u"num"), number(7)},
                                          {str(u"arr"), NSArray{number(1), number(2)}},
                                          {str(u"data"), NSData(std::string("\1\2"))}}));
    EXPECT_EQ(hex(archive(list)), hex(genuine));
}

TEST(Archiver, WritesAnErrorWithItsPath) {
    NSError error(NSCocoaErrorDomain, 4, {{str(NSFilePathErrorKey), str(u"/tmp/nope.rtf")}});
    const std::string expected =
        bytesOf("04 0B \"streamtyped\" 81 E8 03  84 01 40"
                "84 84 84 07 \"NSError\" 00 84 84 08 \"NSObject\" 00 85 84 03 \"i@@\" 04"
                "84 84 84 08 \"NSString\" 01 94 84 01 \"+\" 12 \"NSCocoaErrorDomain\" 86"
                "84 84 84 0C \"NSDictionary\" 00 94 84 01 \"i\" 01"
                "92 84 96 97 0A \"NSFilePath\" 86 92 84 96 97 0D \"/tmp/nope.rtf\" 86 86 86");
    EXPECT_EQ(expected.size(), 146u);
    EXPECT_EQ(hex(archive(error)), hex(expected));
}

TEST(Archiver, WritesNilForTheUserInformationThatAnErrorHasNot) {
    const std::string expected =
        bytesOf("84 03 \"i@@\" FF 84 84 84 08 \"NSString\" 01 94 84 01 \"+\" 01 \"D\" 86 85 86");
    EXPECT_EQ(hex(contentsOf(NSError(u"D", -1))), hex(expected));
    EXPECT_EQ(hex(contentsOf(NSError(u"D", -1, NSDictionary::dictionary()))), hex(expected));
    EXPECT_EQ(hex(contentsOf(NSError(nullptr, 0))), hex(bytesOf("84 03 \"i@@\" 00 85 85 86")));
}

TEST(Archiver, CutsCodesToThirtyTwoBits) {
    EXPECT_EQ(hex(contentsOf(NSError(nullptr, 0x123456789))),
              hex(bytesOf("84 03 \"i@@\" 82 89 67 45 23 85 85 86")));
    EXPECT_EQ(hex(contentsOf(NSError(nullptr, 0xFFFFFFFF))), hex(bytesOf("84 03 \"i@@\" FF 85 85 86")));
}

TEST(Archiver, WritesNil) {
    EXPECT_EQ(hex(archive(nullptr)),
              hex(bytesOf("04 0B 73 74 72 65 61 6D 74 79 70 65 64 81 E8 03 84 01 40 85")));
}

TEST(Archiver, WritesIntegersInTheirShortestForm) {
    const std::pair<int64_t, const char*> table[] = {
        {-110, "92"},
        {127, "7F"},
        {-111, "81 91 FF"},
        {128, "81 80 00"},
        {-32768, "81 00 80"},
        {32767, "81 FF 7F"},
        {-32769, "82 FF 7F FF FF"},
        {32768, "82 00 80 00 00"},
        {INT32_MIN, "82 00 00 00 80"},
        {INT32_MAX, "82 FF FF FF 7F"},
        {int64_t(INT32_MIN) - 1, "87 FF FF FF 7F FF FF FF FF"},
        {int64_t(INT32_MAX) + 1, "87 00 00 00 80 00 00 00 00"},
        {INT64_MIN, "87 00 00 00 00 00 00 00 80"},
        {INT64_MAX, "87 FF FF FF FF FF FF FF 7F"},
    };
    for (const auto& [value, form] : table) {
        EXPECT_EQ(hex(contentsOf(number(value))),
                  hex(bytesOf("84 01 \"*\" 84 84 01 \"q\" 97" + std::string(form) + "86")));
    }
}

TEST(Archiver, WritesNumbersByTheirTypes) {
    const std::pair<NSNumber, const char*> table[] = {
        {NSNumber::withBool(true), "\"c\" 97 01"},
        {NSNumber::withChar(-3), "\"c\" 97 FD"}, // one raw byte, even where an integer would need a head
        {NSNumber::withChar(-128), "\"c\" 97 80"},
        {NSNumber::withShort(300), "\"s\" 97 81 2C 01"},
        {NSNumber::withInt(-1), "\"i\" 97 FF"},
        {NSNumber::withUnsignedInteger(UINT64_MAX), "\"Q\" 97 FF"},
        {NSNumber::withUnsignedInteger(uint64_t(1) << 63), "\"Q\" 97 87 00 00 00 00 00 00 00 80"},
        {NSNumber::withUnsignedInteger(7), "\"q\" 97 07"},
        {NSNumber::withFloat(0), "\"f\" 97 00"},
        {NSNumber::withFloat(100), "\"f\" 97 64"},
        {NSNumber::withFloat(0.5f), "\"f\" 97 83 00 00 00 3F"},
        {NSNumber::withFloat(2147483648.f), "\"f\" 97 83 00 00 00 4F"},
        {NSNumber::withDouble(100), "\"d\" 97 64"},
        {NSNumber::withDouble(-2147483648.0), "\"d\" 97 82 00 00 00 80"},
        {NSNumber::withDouble(2147483648.0), "\"d\" 97 83 00 00 00 00 00 00 E0 41"},
        {NSNumber::withDouble(INFINITY), "\"d\" 97 83 00 00 00 00 00 00 F0 7F"},
    };
    for (const auto& [value, form] : table) {
        EXPECT_EQ(hex(contentsOf(value)), hex(bytesOf("84 01 \"*\" 84 84 01" + std::string(form) + "86")))
            << form;
    }
}

TEST(Archiver, WritesGeometryAsStructures) {
    const std::pair<NSValue, const char*> table[] = {
        {NSValue(NSPoint{1, -2}), "84 84 0C \"{CGPoint=dd}\" 96 01 FE"},
        {NSValue(NSSize{3, 0.5}), "84 84 0B \"{CGSize=dd}\" 96 03 83 00 00 00 00 00 00 E0 3F"},
        {NSValue(NSRect{{1, 2}, {3, 4}}), "84 84 20 \"{CGRect={CGPoint=dd}{CGSize=dd}}\" 96 01 02 03 04"},
        {NSValue(NSRange{3, UINT64_MAX}), "84 84 0D \"{_NSRange=QQ}\" 96 03 FF"},
    };
    for (const auto& [value, form] : table) {
        EXPECT_EQ(hex(contentsOf(value)), hex(bytesOf("84 01 \"*\"" + std::string(form) + "86"))) << form;
    }
}

TEST(Archiver, WritesTheSameObjectOnceAndEqualOnesTwice) {
    const NSString one = u"s", equal = u"s";
    EXPECT_EQ(hex(contentsOf(NSArray{one, equal, one})),
              hex(bytesOf("84 01 \"i\" 03 92 84 84 84 08 \"NSString\" 01 94 84 01 \"+\" 01 \"s\" 86"
                          "92 84 96 97 01 \"s\" 86 92 95 86")));
}

TEST(Archiver, WritesReferencesBeyondTheSmallOnes) {
    std::vector<NSObject> objects;
    for (int i = 0; i < 240; ++i) objects.push_back(str(u"x"));
    const NSArray all(objects);
    // The root is number 0, its classes 1 and 2, the first string 3 and its class 4, the others follow.
    for (const auto& [index, reference] :
         {std::pair(233, "7F"), std::pair(234, "81 80 00"), std::pair(239, "81 85 00")}) {
        objects.push_back(objects[size_t(index)]);
        const std::string bytes = archive(NSArray(objects));
        EXPECT_EQ(hex(bytes.substr(bytes.find('\x92', bytes.size() - 6))),
                  hex(bytesOf("92" + std::string(reference) + "86")));
        objects.pop_back();
    }
}

TEST(Archiver, WritesLoneSurrogatesAsThreeBytes) {
    EXPECT_EQ(hex(contentsOf(str(u"\xDC80|\xD800|\U0001F600"))),
              hex(bytesOf("84 01 \"+\" 0C ED B2 80 7C ED A0 80 7C F0 9F 98 80 86")));
}

TEST(Archiver, WritesTheLengthOfDataIntoItsType) {
    EXPECT_EQ(hex(contentsOf(NSData(std::string()))), hex(bytesOf("84 01 \"i\" 00 84 04 \"[0c]\" 86")));
    EXPECT_EQ(hex(contentsOf(NSData(std::string(200, 'x')))).substr(0, 38),
              hex(bytesOf("84 01 \"i\" 81 C8 00 84 06 \"[200c]\"")).substr(0, 38));
}

class OtherBody final : public ObjectBody {
public:
    explicit OtherBody(std::string_view name) : ObjectBody(NSKind::other), name_(name) {}
    std::string_view className() const override { return name_; }
    std::u16string description(unsigned) const override { return u""; }

private:
    std::string_view name_;
};

TEST(Archiver, RaisesForWhatCannotBeArchived) {
    const std::pair<NSObject, const char*> table[] = {
        {NSClass("NSString"), "+[NSString encodeWithCoder:]: unrecognized selector sent to class %p"},
        {CFKeyedArchiverUID(1), "-[__NSCFType encodeWithCoder:]: unrecognized selector sent to instance %p"},
        {NSObject(new OtherBody("ZORThing")),
         "-[ZORThing encodeWithCoder:]: unrecognized selector sent to instance %p"},
        {NSObject(new OtherBody("NSString")),
         "-[NSString encodeWithCoder:]: unrecognized selector sent to instance %p"},
    };
    for (const auto& [object, format] : table) {
        const NSString reason = stringWithFormat(format, static_cast<const void*>(object.body()));
        for (const NSObject& root : {object, NSObject(NSArray{str(u"a"), object}),
                                     NSObject(NSError(u"D", 1, {{str(u"k"), object}}))}) {
            try {
                archive(root);
                ADD_FAILURE() << reason.utf8();
            } catch (const NSException& exception) {
                EXPECT_EQ(exception.name(), str(NSInvalidArgumentException));
                EXPECT_EQ(exception.reason().utf8(), reason.utf8());
            }
        }
    }
}

TEST(Archiver, WritesErrorsHoweverDeeplyNested) {
    NSError error(u"D", 0);
    for (int i = 1; i < 3000; ++i) error = NSError(u"D", i, {{str(NSUnderlyingErrorKey), error}});
    EXPECT_TRUE(archive(error).starts_with(bytesOf(kHeader)));
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
//
// The texts that values print of themselves.
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURL.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

NSString s(const char16_t* text) { return text; }
NSNumber n(int64_t value) { return NSNumber::withInteger(value); }

struct Case {
    const char* name;
    NSObject object;
    const char* expected;
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }

class Description : public testing::TestWithParam<Case> {};

TEST_P(Description, IsThePlatformsText) {
    EXPECT_EQ(GetParam().object.description().utf8(), GetParam().expected);
}

const double kInfinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Leaves, Description,
    testing::Values(
        Case{"string", s(u"a \"b\"\n"), "a \"b\"\n"}, Case{"true", NSNumber::withBool(true), "1"},
        Case{"false", NSNumber::withBool(false), "0"}, Case{"negative", n(-42), "-42"},
        Case{"unsigned", NSNumber::withUnsignedInteger(UINT64_MAX), "18446744073709551615"},
        Case{"tenth", NSNumber::withDouble(0.1), "0.1"},
        Case{"third", NSNumber::withDouble(1.0 / 3), "0.3333333333333333"},
        Case{"large", NSNumber::withDouble(1e16), "1e+16"}, Case{"hundred", NSNumber::withDouble(100), "100"},
        Case{"negativeZero", NSNumber::withDouble(-0.0), "-0"},
        Case{"nan", NSNumber::withDouble(-NAN), "nan"},
        Case{"infinity", NSNumber::withDouble(kInfinity), "inf"},
        Case{"negativeInfinity", NSNumber::withDouble(-kInfinity), "-inf"},
        Case{"float", NSNumber::withFloat(0.1F), "0.1"},
        Case{"emptyData", NSData(""), "{length = 0, bytes = 0x}"},
        Case{"shortData", NSData("\x01\x02\xff"), "{length = 3, bytes = 0x0102ff}"},
        Case{"data24", NSData("ABCDEFGHIJKLMNOPQRSTUVWX"),
             "{length = 24, bytes = 0x4142434445464748494a4b4c4d4e4f505152535455565758}"},
        Case{"data25", NSData("ABCDEFGHIJKLMNOPQRSTUVWXY"),
             "{length = 25, bytes = 0x41424344 45464748 494a4b4c 4d4e4f50 ... 52535455 56575859 }"},
        Case{"date", NSDate(0.9), "2001-01-01 00:00:00 +0000"},
        Case{"beforeDate", NSDate(-0.5), "2000-12-31 23:59:59 +0000"}, Case{"null", NSNull::null(), "<null>"},
        Case{"url", NSURL::URLWithString(u"https://h/p?q"), "https://h/p?q"},
        Case{"relativeURL", NSURL::URLWithString(u"sub/file.txt", NSURL::URLWithString(u"http://h/dir/")),
             "sub/file.txt -- http://h/dir/"},
        Case{"point", NSValue(NSPoint{1.5, -2}), "NSPoint: {1.5, -2}"},
        Case{"size", NSValue(NSSize{3, 4.25}), "NSSize: {3, 4.25}"},
        Case{"rect", NSValue(NSRect{{1, 2}, {3, 4}}), "NSRect: {{1, 2}, {3, 4}}"},
        Case{"range", NSValue(NSRange{3, 4}), "NSRange: {3, 4}"},
        Case{"class", NSClass("NSString"), "NSString"}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Containers, Description,
    testing::Values(
        Case{"emptyArray", NSArray(std::vector<NSObject>()), "(\n)"},
        Case{"emptyDictionary", NSDictionary::dictionary(), "{\n}"},
        Case{"twoStrings", NSArray{s(u"a"), s(u"b")}, "(\n    a,\n    b\n)"},
        Case{"nestedArray", NSArray{NSArray{n(1), n(2)}}, "(\n        (\n        1,\n        2\n    )\n)"},
        Case{"nestedDictionary", NSDictionary{{s(u"a"), NSDictionary{{s(u"b"), n(1)}}}},
             "{\n    a =     {\n        b = 1;\n    };\n}"},
        Case{"arrayInDictionary", NSDictionary{{s(u"a"), NSArray(std::vector<NSObject>())}},
             "{\n    a =     (\n    );\n}"},
        Case{"keysSorted", NSDictionary{{s(u"b"), n(1)}, {s(u"B"), n(2)}, {s(u"a"), n(3)}},
             "{\n    B = 2;\n    a = 3;\n    b = 1;\n}"},
        Case{"quotes", NSArray{s(u""), s(u"a b"), s(u"a_b"), s(u"\"\\\n\t"), s(u"\u00e9\U0001F600")},
             "(\n    \"\",\n    \"a b\",\n    \"a_b\",\n    \"\\\"\\\\\\n\\t\",\n    "
             "\"\\U00e9\\Ud83d\\Ude00\"\n)"},
        Case{"controls", NSArray{NSString(std::u16string(u"\0\x1b\x7f", 3))},
             "(\n    \"\\000\\033\\177\"\n)"},
        Case{"otherLeaves",
             NSArray{NSNull::null(), n(-1), NSNumber::withDouble(1.5), NSValue(NSSize{612, 792})},
             "(\n    \"<null>\",\n    \"-1\",\n    \"1.5\",\n    \"NSSize: {612, 792}\"\n)"},
        Case{"dataUnquoted", NSArray{NSData("\x01")}, "(\n    {length = 1, bytes = 0x01}\n)"}),
    [](const auto& test) { return test.param.name; });

TEST(Description, OfAnErrorListsItsUserInformation) {
    NSError plain(u"X", 5);
    EXPECT_EQ(plain.description().utf8(), "Error Domain=X Code=5 \"(null)\"");
    EXPECT_EQ(NSError::posix(ENOENT).description().utf8(),
              "Error Domain=NSPOSIXErrorDomain Code=2 \"No such file or directory\"");
    NSError cocoa(NSCocoaErrorDomain, 4, {{s(NSFilePathErrorKey), s(u"/tmp/a b")}});
    EXPECT_EQ(cocoa.description().utf8(),
              "Error Domain=NSCocoaErrorDomain Code=4 \"The file “a b” doesn’t exist.\" "
              "UserInfo={NSFilePath=/tmp/a b}");
    NSError over(u"X", 1, {{s(NSUnderlyingErrorKey), plain}});
    std::string text = over.description().utf8();
    EXPECT_NE(text.find("NSUnderlyingError=0x"), std::string::npos) << text;
    EXPECT_NE(text.find("{Error Domain=X Code=5 \"(null)\"}"), std::string::npos) << text;
}

TEST(Description, OfNilIsNilAndPrintsAsNull) {
    EXPECT_FALSE(NSObject().description());
    EXPECT_EQ(printed(NSObject()), u"(null)");
}

} // namespace

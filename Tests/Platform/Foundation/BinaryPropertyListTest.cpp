// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

uint64_t numberAt(std::string_view bytes, size_t position, size_t size) {
    uint64_t value = 0;
    for (size_t i = 0; i < size; ++i) value = value << 8 | (unsigned char)(bytes[position + i]);
    return value;
}

// The bytes of all objects of a list as it is written.
std::string objectsOf(const NSObject& list) {
    const std::string bytes = binaryPropertyList(list);
    return bytes.substr(8, numberAt(bytes, bytes.size() - 8, 8) - 8);
}

uint64_t objectCountOf(const std::string& bytes) { return numberAt(bytes, bytes.size() - 24, 8); }

TEST(BinaryPropertyListWriter, WritesTheWholeLayout) {
    NSDictionary list{{str(u"a"), NSNumber::withInt(1)}, {str(u"b"), NSArray{str(u"a")}}};
    EXPECT_EQ(hex(binaryPropertyList(list)),
              hex(bytesOf("\"bplist00\" D2 01 02 03 04  51 61  51 62  10 01  A1 01"
                          "08 0D 0F 11 13"
                          "00 00 00 00 00 00 01 01  00 00 00 00 00 00 00 05"
                          "00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 15")));
}

struct Written {
    NSObject object;
    const char* bytes;
};

TEST(BinaryPropertyListWriter, WritesIntegersInTheFewestBytes) {
    const Written table[] = {
        {NSNumber::withInt(0), "10 00"},
        {NSNumber::withInt(255), "10 FF"},
        {NSNumber::withInt(256), "11 01 00"},
        {NSNumber::withInt(65535), "11 FF FF"},
        {NSNumber::withInt(65536), "12 00 01 00 00"},
        {NSNumber::withInteger(0xFFFFFFFF), "12 FF FF FF FF"},
        {NSNumber::withInteger(0x100000000), "13 00 00 00 01 00 00 00 00"},
        {NSNumber::withInteger(INT64_MAX), "13 7F FF FF FF FF FF FF FF"},
        {NSNumber::withInt(-1), "13 FF FF FF FF FF FF FF FF"},
        {NSNumber::withChar(-128), "13 FF FF FF FF FF FF FF 80"},
        {NSNumber::withInteger(INT64_MIN), "13 80 00 00 00 00 00 00 00"},
        {NSNumber::withUnsignedInteger(uint64_t(1) << 63),
         "14 00 00 00 00 00 00 00 00 80 00 00 00 00 00 00 00"},
        {NSNumber::withUnsignedInteger(UINT64_MAX), "14 00 00 00 00 00 00 00 00 FF FF FF FF FF FF FF FF"},
        {NSNumber::withChar(1), "10 01"},
        {NSNumber::withShort(7), "10 07"},
    };
    for (const Written& row : table) {
        EXPECT_EQ(hex(objectsOf(row.object)), hex(bytesOf(row.bytes))) << row.object.description().utf8();
    }
}

TEST(BinaryPropertyListWriter, WritesEveryOtherKind) {
    const Written table[] = {
        {NSNumber::withBool(false), "08"},
        {NSNumber::withBool(true), "09"},
        {NSNumber::withFloat(1.5f), "22 3F C0 00 00"},
        {NSNumber::withDouble(1.5), "23 3F F8 00 00 00 00 00 00"},
        {NSNumber::withDouble(-0.0), "23 80 00 00 00 00 00 00 00"},
        {NSNumber::withDouble(INFINITY), "23 7F F0 00 00 00 00 00 00"},
        {NSNumber::withFloat(-INFINITY), "22 FF 80 00 00"},
        {NSNumber::withDouble(std::numeric_limits<double>::quiet_NaN()), "23 7F F8 00 00 00 00 00 00"},
        {NSDate(0.5), "33 3F E0 00 00 00 00 00 00"},
        {NSData(std::string()), "40"},
        {NSData(std::string("\x00\xFF", 2)), "42 00 FF"},
        {str(u""), "50"},
        {str(u"az"), "52 61 7A"},
        {NSString(std::u16string(1, u'\0')), "51 00"},
        {str(u"\x7F"), "51 7F"},
        {str(u"\x80"), "61 00 80"},
        {str(u"a\u20AC"), "62 00 61 20 AC"},
        {str(u"\U0001F600"), "62 D8 3D DE 00"},
        {str(u"\xD800"), "61 D8 00"},
        {CFKeyedArchiverUID(0u), "80 00"},
        {CFKeyedArchiverUID(256), "81 01 00"},
        {CFKeyedArchiverUID(65536), "83 00 01 00 00"},
        {NSArray(std::vector<NSObject>()), "A0"},
        {NSDictionary::dictionary(), "D0"},
    };
    for (const Written& row : table) {
        EXPECT_EQ(hex(objectsOf(row.object)), hex(bytesOf(row.bytes))) << row.object.description().utf8();
    }
}

TEST(BinaryPropertyListWriter, WritesCountsOfFifteenAndMoreAsIntegers) {
    auto head = [](const NSObject& object) { return hex(objectsOf(object).substr(0, 6)); };
    EXPECT_EQ(head(NSString(std::u16string(14, u'a'))), "5E 61 61 61 61 61");
    EXPECT_EQ(head(NSString(std::u16string(15, u'a'))), "5F 10 0F 61 61 61");
    EXPECT_EQ(head(NSString(std::u16string(255, u'a'))), "5F 10 FF 61 61 61");
    EXPECT_EQ(head(NSString(std::u16string(256, u'a'))), "5F 11 01 00 61 61");
    EXPECT_EQ(head(NSString(std::u16string(65536, u'a'))), "5F 12 00 01 00 00");
    EXPECT_EQ(head(NSString(std::u16string(15, u'\u0101'))), "6F 10 0F 01 01 01");
    EXPECT_EQ(head(NSData(std::string(300, 'x'))), "4F 11 01 2C 78 78");
    EXPECT_EQ(head(NSArray(std::vector<NSObject>(15, str(u"")))), "AF 10 0F 01 01 01");
    NSMutableDictionary fifteen;
    for (int i = 0; i < 15; ++i) fifteen.setObject(str(u""), NSString(std::u16string(size_t(i), u'k')));
    EXPECT_EQ(head(fifteen.copy()), "DF 10 0F 01 02 03");
}

TEST(BinaryPropertyListWriter, WritesDepthFirstKeysBeforeValues) {
    NSArray list{NSArray{str(u"a"), NSArray{str(u"b")}},
                 NSDictionary{{str(u"k"), str(u"c")}, {str(u"l"), str(u"d")}}, str(u"e")};
    EXPECT_EQ(hex(objectsOf(list)), hex(bytesOf("A3 01 05 0A  A2 02 03  51 61  A1 04  51 62"
                                                "D2 06 07 08 09  51 6B  51 6C  51 63  51 64  51 65")));
}

TEST(BinaryPropertyListWriter, WritesEqualScalarsOnce) {
    auto count = [](std::vector<NSObject> objects) {
        return objectCountOf(binaryPropertyList(NSArray(objects))) - 1;
    };
    EXPECT_EQ(count({str(u"a"), str(u"a"), str(u"b")}), 2u);
    EXPECT_EQ(count({NSDate(1), NSDate(1), NSDate(2)}), 2u);
    EXPECT_EQ(count({NSData(std::string("x")), NSData(std::string("x")), NSData(std::string("y"))}), 2u);
    EXPECT_EQ(count({NSNumber::withInt(1), NSNumber::withInteger(1), NSNumber::withChar(1)}), 1u);
    EXPECT_EQ(count({NSNumber::withInt(1), NSNumber::withDouble(1), NSNumber::withFloat(1),
                     NSNumber::withBool(true)}),
              4u);
    EXPECT_EQ(count({NSNumber::withBool(true), NSNumber::withBool(true), NSNumber::withBool(false)}), 2u);
    EXPECT_EQ(count({NSNumber::withInteger(-1), NSNumber::withUnsignedInteger(UINT64_MAX)}), 2u);
    EXPECT_EQ(count({str(u"x"), NSData(std::string("x"))}), 2u);
    EXPECT_EQ(count({CFKeyedArchiverUID(3), CFKeyedArchiverUID(3), NSNumber::withInt(3)}), 2u);
}

TEST(BinaryPropertyListWriter, WritesEqualContainersApartAndSharedOnesOnce) {
    NSArray inner((std::vector<NSObject>()));
    EXPECT_EQ(hex(objectsOf(NSArray{NSArray(std::vector<NSObject>()), NSArray(std::vector<NSObject>())})),
              "A2 01 02 A0 A0");
    EXPECT_EQ(hex(objectsOf(NSArray{inner, inner})), "A2 01 01 A0");
}

TEST(BinaryPropertyListWriter, TellsLongTextsApartThatDifferInTheMiddle) {
    std::vector<NSObject> texts;
    for (char16_t c = 0x4E00; c < 0x4E00 + 5000; ++c) {
        std::u16string text(300, u'x');
        text[150] = c;
        texts.push_back(NSString(text));
    }
    NSArray list(texts);
    EXPECT_EQ(readBinaryPropertyList(binaryPropertyList(list)), NSObject(list));
    EXPECT_EQ(objectCountOf(binaryPropertyList(NSArray{texts[0], NSString(as<NSString>(texts[0]).text())})),
              2u);
}

TEST(BinaryPropertyListWriter, ChoosesTheSizesOfReferencesAndOffsets) {
    auto sizes = [](size_t numbers) {
        std::vector<NSObject> objects;
        for (size_t i = 0; i < numbers; ++i) objects.push_back(NSNumber::withInteger(int64_t(i)));
        std::string bytes = binaryPropertyList(NSArray(objects));
        return hex(bytes.substr(bytes.size() - 26, 2));
    };
    EXPECT_EQ(sizes(2), "01 01");
    EXPECT_EQ(sizes(254), "02 01"); // 255 objects
    EXPECT_EQ(sizes(255), "02 02"); // 256 objects
    EXPECT_EQ(sizes(65534), "04 02");
    EXPECT_EQ(sizes(65535), "04 04");
    auto offsetSize = [](size_t length) {
        std::string bytes = binaryPropertyList(NSData(std::string(length, 'x')));
        return bytes[bytes.size() - 26];
    };
    EXPECT_EQ(offsetSize(255 - 11), 1); // a table at 255
    EXPECT_EQ(offsetSize(256 - 11), 2);
}

TEST(BinaryPropertyList, ComesBackAsItWas) {
    NSMutableDictionary all;
    all.setObject(NSArray{NSNumber::withBool(true), NSNumber::withInteger(-5),
                          NSNumber::withUnsignedInteger(UINT64_MAX), NSNumber::withFloat(0.1f),
                          NSNumber::withDouble(0.1), NSDate(-1.25)},
                  str(u"scalars"));
    all.setObject(NSArray{NSData(std::string(1000, '\xFE')), NSString(std::u16string(100000, u'a')),
                          NSString(std::u16string(100000, u'\u4E00')), str(u"\xDC80"), str(u"")},
                  str(u"\u00FCber"));
    all.setObject(NSDictionary::dictionary(), str(u""));
    all.setObject(nestedArrays(511), str(u"deep"));
    NSDictionary list = all.copy();
    EXPECT_EQ(readBinaryPropertyList(binaryPropertyList(list)), NSObject(list));
}

TEST(BinaryPropertyList, OfManyObjectsComesBackAsItWas) {
    std::vector<NSObject> objects;
    for (int64_t i = 0; i < 70000; ++i) {
        objects.push_back(NSArray{NSNumber::withInteger(i * i), NSDate(double(i)),
                                  NSString(NSNumber::withInteger(i).description())});
    }
    NSArray list(std::move(objects));
    EXPECT_EQ(readBinaryPropertyList(binaryPropertyList(list)), NSObject(list));
}

} // namespace

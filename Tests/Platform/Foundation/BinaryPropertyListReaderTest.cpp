// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNull.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"

#include <gtest/gtest.h>
#include <optional>

namespace {

std::string bigEndian(uint64_t value, unsigned size) {
    std::string bytes;
    for (unsigned i = size; i > 0; --i) bytes.push_back(i > 8 ? '\0' : char(value >> (8 * (i - 1))));
    return bytes;
}

// A container's first byte and references.
std::string container(unsigned char head, std::initializer_list<uint64_t> references, unsigned size) {
    std::string bytes(1, char(head));
    for (uint64_t reference : references) bytes += bigEndian(reference, size);
    return bytes;
}

// A list made by hand. Whatever is set replaces what would be right.
struct HandMadeList {
    std::vector<std::string> objects;
    unsigned referenceSize = 1, offsetSize = 1;
    uint64_t top = 0;
    std::string magic = "bplist00", unused = std::string(6, '\0');
    std::optional<uint64_t> count, tableOffset, firstOffset;

    std::string bytes() const {
        std::string out = magic, table;
        for (const std::string& object : objects) {
            table += bigEndian(table.empty() && firstOffset ? *firstOffset : out.size(), offsetSize);
            out += object;
        }
        const uint64_t end = out.size();
        return out + table + unused + char(offsetSize) + char(referenceSize) +
               bigEndian(count.value_or(objects.size()), 8) + bigEndian(top, 8) +
               bigEndian(tableOffset.value_or(end), 8);
    }
};

HandMadeList listOf(std::initializer_list<const char*> objects) {
    HandMadeList list;
    for (const char* object : objects) list.objects.push_back(bytesOf(object));
    return list;
}

NSObject readList(const HandMadeList& list) { return readBinaryPropertyList(list.bytes()); }

uint64_t numberAt(std::string_view bytes, size_t position, size_t size) {
    uint64_t value = 0;
    for (size_t i = 0; i < size; ++i) value = value << 8 | (unsigned char)(bytes[position + i]);
    return value;
}

struct Read {
    const char* bytes;
    NSObject object;
};

TEST(BinaryPropertyListReader, ReadsEveryKind) {
    const Read table[] = {
        {"00", NSNull::null()},
        {"08", NSNumber::withBool(false)},
        {"09", NSNumber::withBool(true)},
        {"10 FF", NSNumber::withInt(255)},
        {"11 FF FF", NSNumber::withInt(65535)},
        {"12 FF FF FF FF", NSNumber::withInteger(0xFFFFFFFF)},
        {"13 FF FF FF FF FF FF FF FE", NSNumber::withInt(-2)},
        {"14 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FE", NSNumber::withUnsignedInteger(UINT64_MAX - 1)},
        {"14 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 05", NSNumber::withInt(5)},
        {"22 3F C0 00 00", NSNumber::withFloat(1.5f)},
        {"23 3F F8 00 00 00 00 00 00", NSNumber::withDouble(1.5)},
        {"33 3F E0 00 00 00 00 00 00", NSDate(0.5)},
        {"42 00 FF", NSData(std::string("\x00\xFF", 2))},
        {"4F 10 01 AA", NSData(std::string("\xAA"))},
        {"4F 14 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 AA", NSData(std::string("\xAA"))},
        {"53 61 00 E9", NSString(std::u16string(u"a\0\u00E9", 3))},
        {"62 D8 00 00 61", str(u"\xD800"
                               u"a")},
        {"80 07", CFKeyedArchiverUID(7)},
        {"83 FF FF FF FF", CFKeyedArchiverUID(UINT32_MAX)},
        {"87 00 00 00 00 00 00 00 09", CFKeyedArchiverUID(9)},
        {"A0", NSArray(std::vector<NSObject>())},
        {"D0", NSDictionary::dictionary()},
    };
    for (const Read& row : table) {
        NSObject object = readList(listOf({row.bytes}));
        EXPECT_EQ(object, row.object) << row.bytes;
        EXPECT_EQ(as<NSNumber>(object).isBoolean(), as<NSNumber>(row.object).isBoolean()) << row.bytes;
    }
}

TEST(BinaryPropertyListReader, RemembersTheTypesOfNumbers) {
    EXPECT_EQ(as<NSNumber>(readList(listOf({"10 01"}))).type(), NSNumber::Type::int64);
    EXPECT_EQ(as<NSNumber>(readList(listOf({"22 00 00 00 00"}))).type(), NSNumber::Type::float32);
    EXPECT_EQ(as<NSNumber>(readList(listOf({"23 00 00 00 00 00 00 00 00"}))).type(), NSNumber::Type::float64);
}

TEST(BinaryPropertyListReader, ReadsContainersOfEverySizeOfReference) {
    for (unsigned size = 1; size <= 8; ++size) {
        HandMadeList list;
        list.referenceSize = size;
        list.offsetSize = 9 - size;
        list.objects = {container(0xD1, {1, 2}, size), bytesOf("51 6B"), container(0xA2, {1, 1}, size)};
        EXPECT_EQ(readList(list), NSObject(NSDictionary{{str(u"k"), NSArray{str(u"k"), str(u"k")}}})) << size;
    }
}

TEST(BinaryPropertyListReader, ReadsAnyLastCharacterOfTheMagicNumberAndAnyTopObject) {
    HandMadeList list = listOf({"51 61", "51 62"});
    list.magic = "bplist0\xFF";
    list.unused = "abcdef";
    list.top = 1;
    EXPECT_EQ(readList(list), NSObject(str(u"b")));
}

TEST(BinaryPropertyListReader, KeepsTheLastOfEqualKeys) {
    EXPECT_EQ(readList(listOf({"D2 01 01 02 03", "51 6B", "10 01", "10 02"})),
              NSObject(NSDictionary{{str(u"k"), NSNumber::withInt(2)}}));
}

TEST(BinaryPropertyListReader, SharesSharedObjects) {
    NSArray list = as<NSArray>(readList(listOf({"A2 01 01", "A1 02", "51 61"})));
    ASSERT_EQ(list.count(), 2u);
    EXPECT_EQ(list.objectAtIndex(0).body(), list.objectAtIndex(1).body());
}

TEST(BinaryPropertyListReader, ReadsObjectsAtOnePlaceOnce) {
    HandMadeList list = listOf({"A2 01 02", "51 61"});
    std::string bytes = list.bytes();
    bytes.insert(bytes.size() - 32, 1, char(11)); // a third offset, of the second object
    bytes[bytes.size() - 17] = 3;
    NSArray array = as<NSArray>(readBinaryPropertyList(bytes));
    ASSERT_EQ(array.count(), 2u);
    EXPECT_EQ(array.objectAtIndex(0).body(), array.objectAtIndex(1).body());
}

TEST(BinaryPropertyListReader, RefusesADamagedTrailer) {
    const HandMadeList good = listOf({"A1 01", "51 61"});
    ASSERT_TRUE(readList(good));
    auto refuses = [&](auto change) {
        HandMadeList list = good;
        change(list);
        return !readList(list);
    };
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.magic = "bplist10"; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.count = 0; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.count = 1; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.count = 3; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.count = UINT64_MAX; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.count = (uint64_t(1) << 63) + 2; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.top = 2; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.tableOffset = 8; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.tableOffset = 13; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.tableOffset = UINT64_MAX; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.tableOffset = uint64_t(0) - 2; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.offsetSize = 0; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.offsetSize = 9; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.referenceSize = 0; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.referenceSize = 9; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.unused.push_back('\0'); }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.firstOffset = 7; }));
    EXPECT_TRUE(refuses([](HandMadeList& l) { l.firstOffset = 12; }));
}

TEST(BinaryPropertyListReader, RefusesWhatIsTooShort) {
    const std::string shortest = listOf({"50"}).bytes();
    EXPECT_EQ(shortest.size(), 42u);
    EXPECT_TRUE(readBinaryPropertyList(shortest));
    for (size_t length = 0; length < shortest.size(); ++length) {
        EXPECT_FALSE(readBinaryPropertyList(std::string_view(shortest).substr(0, length))) << length;
        EXPECT_FALSE(readBinaryPropertyList(std::string_view(shortest).substr(shortest.size() - length)))
            << length;
    }
}

TEST(BinaryPropertyListReader, RefusesSizesTooSmallForTheirNumbers) {
    HandMadeList many;
    many.objects.assign(255, bytesOf("08"));
    many.offsetSize = 2;
    EXPECT_TRUE(readList(many));
    many.objects.push_back(bytesOf("08")); // 256 objects
    EXPECT_FALSE(readList(many));
    many.referenceSize = 2;
    EXPECT_TRUE(readList(many));

    HandMadeList large;
    large.objects = {bytesOf("4F 10 F4") + std::string(244, 'x')};
    EXPECT_TRUE(readList(large)); // a table at 255
    large.objects = {bytesOf("4F 10 F5") + std::string(245, 'x')};
    EXPECT_FALSE(readList(large));
}

TEST(BinaryPropertyListReader, RefusesMalformedObjects) {
    const char* table[] = {
        "0F",
        "01",
        "0A", // simple values that are none
        "15 00",
        "1F 00", // integers of 32 and more bytes
        "10",
        "11 00",
        "13 00 00 00 00 00 00 00",
        "14 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00", // cut
        "20 00",
        "21 00 00",
        "24 00 00 00 00 00 00 00 00",
        "22 00 00 00",
        "23 00 00 00 00 00 00 00",
        "32 00 00 00 00",
        "33 00 00 00 00 00 00 00",
        "30 00",
        "41",
        "51",
        "61 00",
        "62 00 61 00", // contents beyond the table
        "4F",
        "5F",
        "4F 11 00",
        "4F 10",
        "4F 51 61",
        "4F 08",
        "4F 15 00", // counts that are none
        "4F 13 FF FF FF FF FF FF FF FF",
        "5F 13 7F FF FF FF FF FF FF FF",
        "6F 13 7F FF FF FF FF FF FF FF",
        "4F 14 00 00 00 00 00 00 00 00 FF FF FF FF FF FF FF FF",
        "AF 13 7F FF FF FF FF FF FF FF",
        "DF 13 3F FF FF FF FF FF FF FF",
        "5F 10 02 61",
        "71 61",
        "91 00",
        "E0",
        "F0",
        "81 00",
        "84 01 00 00 00 00",
        "8F FF 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00",
        "A1",
        "A1 01",
        "A1 FF",
        "D1 00",
        "B0",
        "C0",
        "C1 00",
    };
    for (const char* object : table) EXPECT_FALSE(readList(listOf({object}))) << object;
}

TEST(BinaryPropertyListReader, RefusesKeysThatAreNoStrings) {
    for (const char* key :
         {"10 01", "09", "A0", "D0", "41 61", "00", "80 00", "33 00 00 00 00 00 00 00 00"}) {
        EXPECT_FALSE(readList(listOf({"D1 01 02", key, "51 61"}))) << key;
    }
}

TEST(BinaryPropertyListReader, RefusesCycles) {
    EXPECT_FALSE(readList(listOf({"A1 00"})));
    EXPECT_FALSE(readList(listOf({"A1 01", "A1 00"})));
    EXPECT_FALSE(readList(listOf({"D1 01 00", "51 61"})));
    EXPECT_FALSE(readList(listOf({"A1 01", "D1 02 01", "51 61"})));
}

HandMadeList nestedLists(unsigned depth) {
    HandMadeList list;
    list.referenceSize = list.offsetSize = 4;
    for (unsigned i = 1; i < depth; ++i) list.objects.push_back(container(0xA1, {i}, 4));
    list.objects.push_back(bytesOf("A0"));
    return list;
}

TEST(BinaryPropertyListReader, RefusesTooManyNestedContainers) {
    EXPECT_TRUE(readList(nestedLists(512)));
    EXPECT_FALSE(readList(nestedLists(513)));
    EXPECT_FALSE(readList(nestedLists(200000)));
}

TEST(BinaryPropertyListReader, CountsTheNestingOfSharedContainers) {
    // The last element of the list holds 300 arrays around an array that was read before and holds 300 more.
    HandMadeList list = nestedLists(300);
    const unsigned inner = 1, outer = 302;
    for (std::string& object : list.objects) {
        if (object.size() > 1) object = container(0xA1, {numberAt(object, 1, 4) + inner}, 4);
    }
    list.objects.insert(list.objects.begin(), container(0xA2, {inner, outer}, 4));
    list.objects.push_back(bytesOf("A0"));
    for (unsigned i = outer; i < outer + 300; ++i) {
        list.objects.push_back(container(0xA1, {i + 1 < outer + 300 ? i + 1 : inner}, 4));
    }
    EXPECT_FALSE(readList(list));
}

TEST(BinaryPropertyListReader, ReadsWhatIsSharedWithoutCopies) {
    // Each of the arrays holds the next one twice: a million leaves in the tree, twenty arrays in memory.
    HandMadeList list;
    for (unsigned i = 0; i < 20; ++i) list.objects.push_back(container(0xA2, {i + 1, i + 1}, 1));
    list.objects.push_back(bytesOf("A0"));
    EXPECT_TRUE(readList(list));
}

TEST(BinaryPropertyListReader, RefusesAShortListOfAHugeTree) {
    HandMadeList list;
    for (unsigned i = 0; i < 100; ++i) list.objects.push_back(container(0xA2, {i + 1, i + 1}, 1));
    list.objects.push_back(bytesOf("A0"));
    list.offsetSize = 2;
    EXPECT_FALSE(readList(list));
}

TEST(BinaryPropertyListReader, RefusesOverlappingContainers) {
    // Three hundred offsets into one run of bytes, at each of which long data can be read.
    HandMadeList data;
    data.offsetSize = data.referenceSize = 2;
    data.objects = {bytesOf("AF 11 01 2C")};
    for (unsigned i = 1; i <= 300; ++i) data.objects[0] += bigEndian(i, 2);
    std::string bytes = data.bytes();
    const size_t table = numberAt(bytes, bytes.size() - 8, 8);
    std::string objects = bytes.substr(0, table), offsets = bigEndian(8, 2);
    const size_t start = objects.size();
    for (unsigned i = 0; i < 300; ++i)
        objects += bytesOf("4F 11 07 D0"); // 2000 bytes each, from every fourth on
    objects += std::string(2000, 'x');
    for (unsigned i = 0; i < 300; ++i) offsets += bigEndian(start + 4 * i, 2);
    EXPECT_FALSE(readBinaryPropertyList(objects + offsets + std::string(6, '\0') + '\2' + '\2' +
                                        bigEndian(301, 8) + bigEndian(0, 8) + bigEndian(objects.size(), 8)));
}

} // namespace

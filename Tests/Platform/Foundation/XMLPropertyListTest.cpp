// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

const std::string kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                          "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                          "<plist version=\"1.0\">\n";
const std::string kFoot = "</plist>\n";

struct Row {
    NSObject object;
    std::string text;
};

TEST(XMLPropertyListWriter, WritesScalars) {
    const Row table[] = {
        {str(u"text"), "<string>text</string>"},
        {str(u""), "<string></string>"},
        {str(u"<a> & \"b\" 'c'\t\n\r"), "<string>&lt;a&gt; &amp; \"b\" 'c'\t\n\r</string>"},
        {NSString(std::u16string(u"\0\x1B", 2)), std::string("<string>\0\x1B</string>", 19)},
        {str(u"\u00E9\u20AC\U0001F600"), "<string>é€😀</string>"},
        {str(u"\xD800|"), "<string>\uFFFD|</string>"},
        {NSNumber::withInt(-12), "<integer>-12</integer>"},
        {NSNumber::withInteger(INT64_MIN), "<integer>-9223372036854775808</integer>"},
        {NSNumber::withUnsignedInteger(UINT64_MAX), "<integer>18446744073709551615</integer>"},
        {NSNumber::withChar(1), "<integer>1</integer>"},
        {NSNumber::withDouble(0.1), "<real>0.10000000000000001</real>"},
        {NSNumber::withFloat(0.1f), "<real>0.10000000149011612</real>"},
        {NSNumber::withDouble(2), "<real>2</real>"},
        {NSNumber::withDouble(1e20), "<real>1e+20</real>"},
        {NSNumber::withDouble(0), "<real>0.0</real>"},
        {NSNumber::withDouble(-0.0), "<real>0.0</real>"},
        {NSNumber::withDouble(NAN), "<real>nan</real>"},
        {NSNumber::withDouble(INFINITY), "<real>+infinity</real>"},
        {NSNumber::withFloat(-INFINITY), "<real>-infinity</real>"},
        {NSNumber::withBool(true), "<true/>"},
        {NSNumber::withBool(false), "<false/>"},
        {NSDate(0.0), "<date>2001-01-01T00:00:00Z</date>"},
        {NSDate(86399.999), "<date>2001-01-01T23:59:59Z</date>"},
        {NSDate(-63113904000.0), "<date>0001-01-01T00:00:00Z</date>"},
        {CFKeyedArchiverUID(7), "<dict>\n\t<key>CF$UID</key>\n\t<integer>7</integer>\n</dict>"},
        {NSArray(std::vector<NSObject>()), "<array/>"},
        {NSDictionary::dictionary(), "<dict/>"},
        {NSData(std::string()), "<data>\n</data>"},
        {NSData(std::string("a")), "<data>\nYQ==\n</data>"},
        {NSData(std::string("ab")), "<data>\nYWI=\n</data>"},
        {NSData(std::string("abc")), "<data>\nYWJj\n</data>"},
    };
    for (const Row& row : table) EXPECT_EQ(XMLPropertyList(row.object), kHead + row.text + "\n" + kFoot);
}

TEST(XMLPropertyListWriter, IndentsContainersAndSortsKeysByUnits) {
    NSDictionary list{{str(u"b"), NSArray{NSNumber::withInt(1), NSArray{str(u"x")}}},
                      {str(u"\uFF5E"), str(u"5")},
                      {str(u"\U0001F600"), str(u"4")},
                      {str(u"a<"), NSDictionary{{str(u""), NSNumber::withBool(true)}}},
                      {str(u"B"), NSDictionary::dictionary()}};
    EXPECT_EQ(XMLPropertyList(list), kHead +
                                         "<dict>\n"
                                         "\t<key>B</key>\n"
                                         "\t<dict/>\n"
                                         "\t<key>a&lt;</key>\n"
                                         "\t<dict>\n"
                                         "\t\t<key></key>\n"
                                         "\t\t<true/>\n"
                                         "\t</dict>\n"
                                         "\t<key>b</key>\n"
                                         "\t<array>\n"
                                         "\t\t<integer>1</integer>\n"
                                         "\t\t<array>\n"
                                         "\t\t\t<string>x</string>\n"
                                         "\t\t</array>\n"
                                         "\t</array>\n"
                                         "\t<key>😀</key>\n"
                                         "\t<string>4</string>\n"
                                         "\t<key>～</key>\n"
                                         "\t<string>5</string>\n"
                                         "</dict>\n" +
                                         kFoot);
}

TEST(XMLPropertyListWriter, BreaksDataIntoLinesByTheirIndent) {
    for (size_t level : {0, 1, 2, 7, 8, 9, 12}) {
        NSObject list = NSData(std::string(60, '\0'));
        for (size_t i = 0; i < level; ++i) list = NSArray{list};
        std::string tabs(level, '\t'), capped(std::min<size_t>(level, 8), '\t'), data;
        const size_t line = 76 - 8 * capped.size();
        for (std::string rest(80, 'A'); !rest.empty(); rest = rest.substr(std::min(line, rest.size()))) {
            data += capped + rest.substr(0, line) + "\n";
        }
        EXPECT_NE(XMLPropertyList(list).find("\n" + tabs + "<data>\n" + data + tabs + "</data>\n"),
                  std::string::npos)
            << level;
    }
}

TEST(XMLPropertyList, ComesBackAsItWas) {
    NSDictionary list{
        {str(u"text"), NSString(std::u16string(u"a\0<&>\"\r\n\u4E00\U0001F600", 11))},
        {str(u"numbers"),
         NSArray{NSNumber::withDouble(0.1), NSNumber::withInteger(INT64_MIN), NSNumber::withBool(false),
                 NSNumber::withUnsignedInteger(UINT64_MAX), NSNumber::withDouble(5e-324)}},
        {str(u"data"), NSArray{NSData(std::string(1000, '\xA5')), NSData(std::string())}},
        {str(u"date"), NSDate(-1e9)},
        {str(u"uid"), CFKeyedArchiverUID(UINT32_MAX)},
        {str(u"deep"), nestedArrays(511)}};
    NSPropertyListFormat format{};
    EXPECT_EQ(propertyListWithData(XMLPropertyList(list), &format, nullptr), NSObject(list));
    EXPECT_EQ(format, NSPropertyListXMLFormat_v1_0);
}

} // namespace

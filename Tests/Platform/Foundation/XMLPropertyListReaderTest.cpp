// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Row {
    NSObject object;
    std::string text;
};

NSObject readText(std::string_view utf8, NSString* problem = nullptr) {
    NSString unheeded;
    std::u16string text;
    EXPECT_TRUE(decodePropertyListText(text, utf8, unheeded));
    return readXMLPropertyList(text, problem ? *problem : unheeded);
}

std::string problemOf(std::string_view utf8) {
    NSString problem;
    EXPECT_FALSE(readText(utf8, &problem)) << utf8;
    return problem.utf8();
}

// In elements that need no list around them.
NSObject readElement(const std::string& element) { return readText("<plist>" + element + "</plist>"); }

TEST(XMLPropertyListReader, ReadsElements) {
    const Row table[] = {
        {str(u"a b"), "<string>a b</string>"},
        {str(u" \n\t"), "<string> \n\t</string>"},
        {str(u""), "<string/>"},
        {str(u""), "<string ></string >"},
        {str(u"<>&'\""), "<string>&lt;&gt;&amp;&apos;&quot;</string>"},
        {str(u"Aé😀\n"), "<string>&#65;&#xE9;&#x1f600;&#10;</string>"},
        {NSString(std::u16string(1, u'\0')), "<string>&#0;</string>"},
        {str(u"a<b>&amp;c]]d"), "<string>a<![CDATA[<b>&amp;c]]]]><![CDATA[d]]></string>"},
        {str(u"x"), "<string lang=\"a>b/\">x</string>"},
        {NSNumber::withInt(12), "<integer>12</integer>"},
        {NSNumber::withInt(-12), "<integer> \n- 12</integer>"},
        {NSNumber::withInt(12), "<integer>+12</integer>"},
        {NSNumber::withInt(-255), "<integer>-0xfF</integer>"},
        {NSNumber::withInteger(INT64_MIN), "<integer>-9223372036854775808</integer>"},
        {NSNumber::withUnsignedInteger(UINT64_MAX), "<integer>18446744073709551615</integer>"},
        {NSNumber::withUnsignedInteger(UINT64_MAX), "<integer>0XFFFFFFFFFFFFFFFF</integer>"},
        {NSNumber::withDouble(-1.5), "<real>-1.5</real>"},
        {NSNumber::withDouble(1.5), "<real>+1.5e0</real>"},
        {NSNumber::withDouble(0.1), "<real>0.10000000000000001</real>"},
        {NSNumber::withDouble(INFINITY), "<real>infinity</real>"},
        {NSNumber::withDouble(INFINITY), "<real>+InFinity</real>"},
        {NSNumber::withDouble(-INFINITY), "<real>-INFINITY</real>"},
        {NSNumber::withBool(true), "<true/>"},
        {NSNumber::withBool(false), "<false></false>"},
        {NSDate(0.0), "<date>2001-01-01T00:00:00Z</date>"},
        {NSDate(86399), "<date>2001-01-01T23:59:59Z</date>"},
        {NSData(std::string("abcd")), "<data>\n\tYWJj\n ZA==\n</data>"},
        {NSData(std::string("ab")), "<data>Y*W&I=</data>"},
        {NSData(std::string("ac")), "<data>YQ==Yw==</data>"},
        {NSData(std::string("abc")), "<data>YWJjYW</data>"},
        {NSData(std::string()), "<data></data>"},
        {NSArray(std::vector<NSObject>()), "<array/>"},
        {NSArray{str(u"a"), NSNumber::withInt(1)},
         "<array> <!-- <c/> -->\n<string>a</string><integer>1</integer></array>"},
        {NSDictionary::dictionary(), "<dict> </dict>"},
        {NSDictionary{{str(u""), str(u"v")}}, "<dict><key/><string>v</string></dict>"},
        {NSDictionary{{str(u"k&"), NSArray{str(u"v")}}},
         "<dict><key>k&amp;</key><!-- v --><array><string>v</string></array></dict>"},
        {NSDictionary{{str(u"k"), NSNumber::withInt(2)}},
         "<dict><key>k</key><integer>1</integer><key>k</key><integer>2</integer></dict>"},
        {CFKeyedArchiverUID(9), "<dict><key>CF$UID</key><integer>9</integer></dict>"},
        {NSDictionary{{str(u"CF$UID"), str(u"9")}}, "<dict><key>CF$UID</key><string>9</string></dict>"},
        {NSDictionary{{str(u"CF$UID"), NSNumber::withInt(-1)}},
         "<dict><key>CF$UID</key><integer>-1</integer></dict>"},
    };
    for (const Row& row : table) {
        EXPECT_EQ(readElement(row.text), row.object) << row.text;
        EXPECT_EQ(readText(row.text), row.object) << row.text; // without <plist>
    }
    EXPECT_TRUE(std::isnan(as<NSNumber>(readElement("<real>NaN</real>")).doubleValue()));
    EXPECT_TRUE(as<NSNumber>(readElement("<true/>")).isBoolean());
    EXPECT_TRUE(as<NSNumber>(readElement("<integer>9223372036854775808</integer>")).isUnsigned());
    EXPECT_FALSE(as<NSNumber>(readElement("<integer>9223372036854775807</integer>")).isUnsigned());
}

TEST(XMLPropertyListReader, PassesOverWhatStandsAroundTheRoot) {
    for (const char* before :
         {"", "<?xml version='1.0'?>", " \n<!-- c --><?pi ?><!DOCTYPE plist SYSTEM \"a>b\">",
          "<!DOCTYPE plist [ <!ELEMENT a (b)> <!-- ]> ' --> <?pi ]>?> <!ENTITY e \"]>\"> ]> <!-- - -->"}) {
        EXPECT_EQ(readText(before + std::string("<plist version=\"1.0\">\n<true/>\n<!-- c -->\n</plist>\n")),
                  NSObject(NSNumber::withBool(true)))
            << before;
        EXPECT_EQ(readText(before + std::string("<array/>")), NSObject(NSArray(std::vector<NSObject>())))
            << before;
    }
}

TEST(XMLPropertyListReader, RefusesMalformedElements) {
    for (const char* element : {
             "<array>",
             "<array></dict>",
             "<array><key>k</key></array>",
             "<array>text</array>",
             "<array/",
             "<array a=\"",
             "<dict><string>v</string></dict>",
             "<dict><key>k</key></dict>",
             "<dict><key>k</key><key>l</key></dict>",
             "<dict><key>k</key>",
             "<dict><key>k<string>v</string></dict>",
             "<string>a",
             "<string>a</strin>",
             "<string>a</string",
             "<string>a<b/></string>",
             "<string>a<!-- c --></string>",
             "<string><![CDATA[a</string>",
             "<string>&",
             "<string>&amp</string>",
             "<string>&nbsp;</string>",
             "<string>&;</string>",
             "<string>&#;</string>",
             "<string>&#x;</string>",
             "<string>&#xG;</string>",
             "<string>&#1a;</string>",
             "<string>&#x110000;</string>",
             "<string>&#99999999999999999999;</string>",
             "<integer/>",
             "<integer></integer>",
             "<integer>-</integer>",
             "<integer>0x</integer>",
             "<integer>1.5</integer>",
             "<integer>1 </integer>",
             "<integer>12a</integer>",
             "<integer>- -1</integer>",
             "<integer>18446744073709551616</integer>",
             "<integer>0x10000000000000000</integer>",
             "<integer>-9223372036854775809</integer>",
             "<real/>",
             "<real></real>",
             "<real>abc</real>",
             "<real>1.5x</real>",
             "<real>1.5 </real>",
             "<real>inf</real>",
             "<real>+nan</real>",
             "<real>0x1p3</real>",
             "<real>1e999</real>",
             "<real>1,5</real>",
             "<real>--1</real>",
             "<date/>",
             "<date></date>",
             "<date>2001-01-01</date>",
             "<date>2001-01-01T00:00:00</date>",
             "<date>2001-01-01 00:00:00Z</date>",
             "<date>2001-1-01T00:00:00Z</date>",
             "<date>12001-01-01T00:00:00Z</date>",
             "<date>2001-01-01T00:00:00Z </date>",
             "<date>+001-01-01T00:00:00Z</date>",
             "<data/>",
             "<data>YQ==",
             "<data>é</data>",
             "<data>YQ==<b/></data>",
             "<true>",
             "<true>x</true>",
             "<set/>",
             "<plist/>",
             "<>",
             "</array>",
             "<!ELEMENT>",
             "<",
             "<?xml",
             "<!--",
         }) {
        EXPECT_FALSE(readElement(element)) << element;
        EXPECT_FALSE(readText(element)) << element;
    }
}

TEST(XMLPropertyListReader, RefusesMalformedRoots) {
    for (const char* text :
         {"", " ", "<plist/>", "<plist></plist>", "<plist><true/>", "<plist><true/><true/></plist>",
          "<plist><true/></array>", "<plist>text</plist>", "<!DOCTYPE a><!DOCTYPE a><true/>", "<!DOCTYPE a",
          "<!DOCTYPE a [ ", "<!DOCTYPE a [ '", "<!DOCTYPE a [ <!-- ", "<?xml <true/>"}) {
        EXPECT_FALSE(readText(text)) << text;
    }
}

TEST(XMLPropertyListReader, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(problemOf("b"), "Unexpected character b at line 1");
    EXPECT_EQ(problemOf("\n\r\n 😀"), "Unexpected character 😀 at line 3");
    EXPECT_EQ(problemOf("<plist>\r<array>\r\n x"), "Unexpected character x at line 3");
    EXPECT_EQ(problemOf("<array>\n"), "Unexpected end of the text at line 2");
    EXPECT_EQ(problemOf("<array>\n<set/></array>"), "Unknown tag <set> at line 2");
    EXPECT_EQ(problemOf("<array>\n</dict>"), "No end tag of <array> at line 2");
}

TEST(XMLPropertyListReader, RefusesTooManyNestedContainers) {
    auto nested = [](size_t depth) {
        std::string start, end;
        for (size_t i = 0; i < depth; ++i) {
            start += i % 2 ? "<array>" : "<dict><key>k</key>";
            end = (i % 2 ? "</array>" : "</dict>") + end;
        }
        return start + "<true/>" + end;
    };
    EXPECT_TRUE(readText(nested(512)));
    EXPECT_FALSE(readText(nested(513)));
    EXPECT_FALSE(readText(nested(20001)));
}

TEST(XMLPropertyListReader, DetectsTheEncoding) {
    auto wide = [](std::u16string_view text, bool bigEndian, size_t width) {
        std::string bytes;
        for (char16_t c : text) {
            std::string unit(width, '\0');
            for (size_t i = 0; i < 2; ++i) unit[bigEndian ? width - 1 - i : i] = char(c >> (8 * i));
            bytes += unit;
        }
        return bytes;
    };
    const std::u16string text = u"<string>\u00E9</string>", marked = u"\uFEFF" + text;
    const std::pair<const char*, std::string> table[] = {
        {"UTF-8", "<string>é</string>"},
        {"UTF-8 with a mark", "\uFEFF<string>é</string>"},
        {"UTF-8 by declaration", "<?xml version=\"1.0\" encoding = 'utf-8' ?><string>é</string>"},
        {"Latin-1 by declaration", "<?xml version='1.0' encoding=\"ISO-8859-1\"?><string>\xE9</string>"},
        {"a declaration that cannot be", "<?xml version='1.0' encoding=\"UTF-16\"?><string>é</string>"},
        {"a declaration without a value", "<?xml version='1.0' encoding=?><string>é</string>"},
        {"UTF-16BE with a mark", wide(marked, true, 2)},
        {"UTF-16LE with a mark", wide(marked, false, 2)},
        {"UTF-32BE with a mark", wide(marked, true, 4)},
        {"UTF-32LE with a mark", wide(marked, false, 4)},
        {"UTF-16BE", wide(text, true, 2)},
        {"UTF-16LE", wide(text, false, 2)},
    };
    for (const auto& [name, bytes] : table) EXPECT_EQ(readText(bytes), NSObject(str(u"\u00E9"))) << name;
}

TEST(XMLPropertyListReader, RefusesBytesThatAreNoTextInTheirEncoding) {
    for (const char* bytes : {"<string>\xE9</string>", "<?xml encoding='no-such-encoding'?><true/>",
                              "\uFEFF<string>\xFF</string>", "<string>\xC0\x80</string>"}) {
        NSString problem;
        std::u16string text;
        EXPECT_FALSE(decodePropertyListText(text, bytes, problem)) << bytes;
        EXPECT_TRUE(problem) << bytes;
    }
}

TEST(XMLPropertyListReader, TakesSurrogatesInUTF8) {
    EXPECT_EQ(readText("<string>\xED\xA0\x80</string>"), NSObject(str(u"\xD800")));
}

} // namespace

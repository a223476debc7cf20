// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/UnicodeText.h"
#include "Tests/Platform/Foundation/PropertyListTesting.h"

#include <gtest/gtest.h>

namespace {

NSObject readText(std::string_view utf8) {
    NSString problem;
    return readOldStylePropertyList(fromUTF8(utf8), problem);
}

std::string problemOf(std::string_view utf8) {
    NSString problem;
    EXPECT_FALSE(readOldStylePropertyList(fromUTF8(utf8), problem)) << utf8;
    return problem.utf8();
}

struct Row {
    const char* text;
    NSObject object;
};

TEST(OldStylePropertyList, ReadsObjects) {
    const NSArray none((std::vector<NSObject>()));
    const Row table[] = {
        {"hello", str(u"hello")},
        {" a/b_c$d:e.f-9 ", str(u"a/b_c$d:e.f-9")},
        {"//b", NSDictionary::dictionary()},
        {"/b", str(u"/b")},
        {"\"a b\"", str(u"a b")},
        {"'a \"b\"'", str(u"a \"b\"")},
        {"\"\"", str(u"")},
        {"\"it's 漢\"", str(u"it's 漢")},
        {"()", none},
        {"(a)", NSArray{str(u"a")}},
        {"(a, \"b c\" ,)", NSArray{str(u"a"), str(u"b c")}},
        {"((),{})", NSArray{none, NSDictionary::dictionary()}},
        {"{}", NSDictionary::dictionary()},
        {"{ k = v; }", NSDictionary{{str(u"k"), str(u"v")}}},
        {"{k;'l m'=(x);}", NSDictionary{{str(u"k"), str(u"k")}, {str(u"l m"), NSArray{str(u"x")}}}},
        {"{k=1;k=2;}", NSDictionary{{str(u"k"), str(u"2")}}},
        {"k = v; l;", NSDictionary{{str(u"k"), str(u"v")}, {str(u"l"), str(u"l")}}},
        {"\"k\" = {a=b;}; // end", NSDictionary{{str(u"k"), NSDictionary{{str(u"a"), str(u"b")}}}}},
        {"<>", NSData(std::string())},
        {"< 0aFF 10\n>", NSData(std::string("\x0A\xFF\x10"))},
        {"", NSDictionary::dictionary()},
        {" \t\n\v\f\r\u2028\u2029", NSDictionary::dictionary()},
        {"/* c */ // d", NSDictionary::dictionary()},
        {"/* c */(/**/a // x\n,/***/b)", NSArray{str(u"a"), str(u"b")}},
        {"a//b", str(u"a//b")},
        {"a /* open", str(u"a")},
    };
    for (const Row& row : table) EXPECT_EQ(readText(row.text), row.object) << row.text;
}

TEST(OldStylePropertyList, ReadsEscapes) {
    const Row table[] = {
        {R"("\a\b\f\n\r\t\v\\\"\'")", str(u"\a\b\f\n\r\t\v\\\"'")},
        {"\"a\\\nb\"", str(u"a\nb")},
        {R"("\101\1012\7x\0")", NSString(std::u16string(u"AA2\7x\0", 6))},
        {R"("\200\247\367\374")", str(u"\u00A0\u00A7\u00FD\u00FE")},
        {R"("\241\341\301\377")", str(u"\u00A1\u00C6\u02CB\uFFFD")},
        {R"("\U00e9\Ue9\U20AC5\Ud83d\Ude00")", str(u"\u00E9\u00E9\u20AC"
                                                   u"5\U0001F600")},
        {R"("\u00e9\Ux\q\8\9")", str(u"u00e9Uxq89")},
    };
    for (const Row& row : table) EXPECT_EQ(readText(row.text), row.object) << row.text;
}

TEST(OldStylePropertyList, RefusesWhatIsMalformed) {
    for (const char* text :
         {"(",     "(a",    "(a,",     "(,)",     "(a b)",  "(a;)",        "{",        "{k",
          "{k=",   "{k=v",  "{k=v}",   "{k=v;",   "{k};",   "{=v;}",       "{(a)=v;}", "{<00>=v;}",
          "<",     "<0",    "<0>",     "<000>",   "<0 0>",  "<0g>",        "<00",      "\"a",
          "'a\"",  "\"a\\", "\"a\\\"", "*",       "é",      ")",           "a b",      "a = b",
          "a = ;", "a; b",  "{} a",    "(a) (b)", "<00> x", "\"a\" \"b\"", "@",        "\\U0041"}) {
        EXPECT_FALSE(readText(text)) << text;
    }
}

TEST(OldStylePropertyList, SaysWhatIsWrongAndWhere) {
    EXPECT_EQ(problemOf("(a)\n\nb"), "Junk after plist at line 3");
    EXPECT_EQ(problemOf("{}\u2028x"), "Junk after plist at line 2");
    EXPECT_EQ(problemOf("(a\n*)"), "No ',' or ')' in an array at line 2");
    EXPECT_EQ(problemOf("(\n*)"), "Unexpected character * at line 2");
    EXPECT_EQ(problemOf("hello world"), "No ';' behind a dictionary's entry at line 1");
    EXPECT_EQ(problemOf("(a,"), "Unexpected end of the text at line 1");
}

TEST(OldStylePropertyList, RefusesTooManyNestedContainers) {
    auto nested = [](size_t depth) { return std::string(depth, '(') + std::string(depth, ')'); };
    EXPECT_TRUE(readText(nested(512)));
    EXPECT_FALSE(readText(nested(513)));
    EXPECT_FALSE(readText(nested(1000000)));
    std::string dictionaries;
    for (int i = 0; i < 100000; ++i) dictionaries += "{k=";
    EXPECT_FALSE(readText(dictionaries));
}

} // namespace

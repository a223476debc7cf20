// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSUserDefaults.h"

#include <gtest/gtest.h>

namespace {

TEST(Paths, TakeApart) {
    struct {
        const char16_t* path;
        const char *last, *extension, *parent;
    } cases[] = {{u"", "", "", ""},
                 {u"/", "/", "", "/"},
                 {u"/a/b/", "b", "", "/a"},
                 {u"a", "a", "", ""},
                 {u"a/", "a", "", ""},
                 {u"a//b", "b", "", "a"},
                 {u".hidden", ".hidden", "", ""},
                 {u"a.", "a.", "", ""},
                 {u"a.tar.gz", "a.tar.gz", "gz", ""},
                 {u"/a", "a", "", "/"},
                 {u"//", "/", "", "/"}};
    for (const auto& c : cases) {
        EXPECT_EQ(lastPathComponent(c.path).utf8(), c.last) << NSString(c.path).utf8();
        EXPECT_EQ(pathExtension(c.path).utf8(), c.extension) << NSString(c.path).utf8();
        EXPECT_EQ(stringByDeletingLastPathComponent(c.path).utf8(), c.parent) << NSString(c.path).utf8();
    }
}

TEST(Paths, AppendWithOneSlash) {
    struct {
        const char16_t *path, *component;
        const char* joined;
    } cases[] = {{u"", u"z", "z"}, {u"/", u"z", "/z"},       {u"a/", u"b", "a/b"},    {u"a/", u"/b/", "a/b"},
                 {u"a", u"", "a"}, {u"a//b", u"c", "a/b/c"}, {u"a", u"b//c", "a/b/c"}};
    for (const auto& c : cases)
        EXPECT_EQ(stringByAppendingPathComponent(c.path, c.component).utf8(), c.joined);
}

TEST(Paths, BytesGoBothWays) {
    for (std::string bytes :
         {std::string("/a/\xff\xc3\x28"), std::string("\xed\xa0\x80"), std::string("\xc3\xa9")}) {
        EXPECT_EQ(fileSystemRepresentation(stringWithFileSystemRepresentation(bytes)), bytes);
    }
    EXPECT_THROW((void)fileSystemRepresentation(NSString(std::u16string(u"a\0b", 3))), NSException);
}

NSDictionary argumentsOf(std::initializer_list<const char16_t*> words) {
    std::vector<NSString> arguments{NSString(u"tool")};
    for (const char16_t* word : words) arguments.emplace_back(word);
    return NSUserDefaults::argumentDomain(arguments);
}

TEST(ArgumentDomain, PairsKeysWithValues) {
    EXPECT_EQ(argumentsOf({u"-Key", u"value"}).get<NSString>(NSString(u"Key")).utf8(), "value");
    EXPECT_EQ(argumentsOf({u"-Key", u""}).get<NSString>(NSString(u"Key")).utf8(), "");
    EXPECT_TRUE(argumentsOf({u"-Key", u""}).objectForKey(NSString(u"Key")));
    EXPECT_EQ(argumentsOf({u"-Key"}).count(), 0u);
    EXPECT_EQ(argumentsOf({u"-", u"x"}).count(), 0u);
    EXPECT_EQ(argumentsOf({u"word", u"-Key", u"v", u"word"}).count(), 1u);
    EXPECT_EQ(argumentsOf({u"--x", u"v"}).get<NSString>(NSString(u"-x")).utf8(), "v");
    EXPECT_EQ(argumentsOf({u"-K", u"1", u"-K", u"2"}).get<NSString>(NSString(u"K")).utf8(), "2");
    EXPECT_EQ(argumentsOf({u"-K", u"-5"}).count(), 0u);
    NSDictionary other = argumentsOf({u"-Key", u"-Other", u"x"});
    EXPECT_FALSE(other.objectForKey(NSString(u"Key")));
    EXPECT_EQ(other.get<NSString>(NSString(u"Other")).utf8(), "x");
}

TEST(ArgumentDomain, ReadsValuesThatArePropertyLists) {
    EXPECT_TRUE(is<NSArray>(argumentsOf({u"-K", u"(a, b)"}).objectForKey(NSString(u"K"))));
    EXPECT_TRUE(is<NSDictionary>(argumentsOf({u"-K", u" {a = b;} "}).objectForKey(NSString(u"K"))));
    EXPECT_EQ(argumentsOf({u"-K", u"\"quoted\""}).get<NSString>(NSString(u"K")).utf8(), "quoted");
    EXPECT_EQ(argumentsOf({u"-K", u"(draft).pdf"}).get<NSString>(NSString(u"K")).utf8(), "(draft).pdf");
    EXPECT_TRUE(is<NSArray>(argumentsOf({u"-K", u"(draft)"}).objectForKey(NSString(u"K"))));
    EXPECT_EQ(argumentsOf({u"-K", u" a "}).get<NSString>(NSString(u"K")).utf8(), " a ");
    EXPECT_EQ(argumentsOf({u"-K", u"7"}).get<NSString>(NSString(u"K")).utf8(), "7");
}

TEST(UserDefaults, ReadTyped) {
    NSUserDefaults defaults({u"tool", u"-S", u"text", u"-Y", u"yes", u"-O", u"1", u"-T", u"2", u"-A", u"(a)"},
                            u"org.example.none");
    EXPECT_EQ(defaults.stringForKey(u"S").utf8(), "text");
    EXPECT_FALSE(defaults.stringForKey(u"A"));
    EXPECT_FALSE(defaults.stringForKey(u"Absent"));
    EXPECT_TRUE(defaults.boolForKey(u"Y"));
    EXPECT_TRUE(defaults.boolForKey(u"O"));
    EXPECT_FALSE(defaults.boolForKey(u"T"));
    EXPECT_FALSE(defaults.boolForKey(u"Absent"));
}

TEST(UserDefaults, RegisteredDefaultsComeLast) {
    NSUserDefaults defaults({u"tool", u"-S", u"argument"}, u"org.example.none");
    defaults.registerDefaults(
        {{NSString(u"S"), NSString(u"registered")}, {NSString(u"N"), NSNumber::withDouble(-2.9)}});
    EXPECT_EQ(defaults.stringForKey(u"S").utf8(), "argument");
    EXPECT_EQ(defaults.stringForKey(u"N").utf8(), "-2.9");
    EXPECT_TRUE(defaults.boolForKey(u"N"));
}

} // namespace

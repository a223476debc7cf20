// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/TemporaryFolder.h"
#include "ZORFoundation/Source/NSError+ZOR.h"
#include "ZORFoundation/Source/NSString+ZORBasics.h"
#include "ZORFoundation/Source/NSString+ZORFilesBasics.h"
#include "ZORFoundation/Source/NSString+ZORPaths.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"
#include "ZORFoundation/Source/NSURL+ZORFileBasics.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

NSString s(const char16_t* text) { return text; }

class Existence : public testing::Test {
protected:
    NSString path(const std::string& name) {
        return stringWithFileSystemRepresentation(folder.path() + "/" + name);
    }
    TemporaryFolder folder;
};

TEST_F(Existence, OfAFileADirectoryAndLinks) {
    writeFile(folder.path() + "/file", "x");
    ASSERT_EQ(mkdir((folder.path() + "/directory").c_str(), 0700), 0);
    ASSERT_EQ(symlink("file", (folder.path() + "/link").c_str()), 0);
    ASSERT_EQ(symlink("nothing", (folder.path() + "/dangling").c_str()), 0);
    EXPECT_TRUE(zorPathExists(path("file")));
    EXPECT_TRUE(zorFileExists(path("file")));
    EXPECT_TRUE(zorPathExists(path("directory")));
    EXPECT_FALSE(zorFileExists(path("directory")));
    EXPECT_TRUE(zorFileExists(path("link")));
    EXPECT_FALSE(zorPathExists(path("dangling")));
    EXPECT_FALSE(zorFileExists(path("dangling")));
    EXPECT_FALSE(zorPathExists(path("missing")));
    EXPECT_FALSE(zorPathExists(u""));
    EXPECT_TRUE(zorPathExists(NSURL::fileURLWithPath(path("directory"))));
    EXPECT_TRUE(zorFileExists(NSURL::fileURLWithPath(path("link"))));
    EXPECT_FALSE(zorFileExists(NSURL::fileURLWithPath(path("directory"))));
}

TEST_F(Existence, OfAPathWithNulRaises) {
    EXPECT_THROW((void)zorPathExists(NSString(std::u16string(u"/tmp\0/x", 7))), NSException);
}

TEST_F(Existence, KeywordsAreNeverNil) {
    EXPECT_TRUE(zorSpotlightKeywords(path("missing")));
    EXPECT_EQ(zorSpotlightKeywords(path("missing")).count(), 0u);
    writeFile(folder.path() + "/file", "x");
    EXPECT_TRUE(zorSpotlightKeywords(path("file")));
    EXPECT_EQ(zorSpotlightKeywords(path("file")).count(), 0u);
    ASSERT_EQ(setxattr((folder.path() + "/file").c_str(), "user.xdg.tags", "k1,k2", 5, 0), 0);
    EXPECT_EQ(zorSpotlightKeywords(path("file")).description().utf8(), "(\n    k1,\n    k2\n)");
}

TEST_F(Existence, OfAURLIsThatOfAFile) {
    EXPECT_TRUE(zorPathExists(NSURL::URLWithString(u"file:///usr")));
    EXPECT_FALSE(zorPathExists(NSURL::URLWithString(u"http://h/usr")));
    EXPECT_FALSE(zorFileExists(NSURL::URLWithString(u"http://h/etc/passwd")));
}

TEST(Child, IsAppendedWithOneSlash) {
    EXPECT_EQ(zorChild(u"/a", u"b").utf8(), "/a/b");
    EXPECT_EQ(zorChild(u"/a/", u"b").utf8(), "/a/b");
    EXPECT_EQ(zorChild(u"", u"b").utf8(), "b");
}

TEST(TrimmingNulls, RemovesThemEverywhere) {
    EXPECT_EQ(zorStringByTrimmingNulls(u"text").utf8(), "text");
    EXPECT_EQ(zorStringByTrimmingNulls(NSString(std::u16string(u"\0a\0b\0", 5))).utf8(), "ab");
    EXPECT_TRUE(zorStringByTrimmingNulls(NSString(std::u16string(3, u'\0'))));
    EXPECT_EQ(zorStringByTrimmingNulls(NSString(std::u16string(3, u'\0'))).length(), 0u);
    EXPECT_EQ(zorStringByTrimmingNulls(u"").length(), 0u);
    std::u16string surrogates(u"\xD83D\0\xDE00\xD800", 4);
    EXPECT_EQ(zorStringByTrimmingNulls(surrogates).text(), std::u16string(u"\xD83D\xDE00\xD800", 3));
}

TEST(CaseInsensitiveEquality, TakesOnlyStrings) {
    EXPECT_TRUE(zorCaseInsensitiveIsEqual(u"ABC", s(u"abc")));
    EXPECT_FALSE(zorCaseInsensitiveIsEqual(u"ABC", s(u"abcd")));
    EXPECT_FALSE(zorCaseInsensitiveIsEqual(u"1", NSNumber::withInt(1)));
    EXPECT_FALSE(zorCaseInsensitiveIsEqual(u"", NSObject()));
    EXPECT_FALSE(zorCaseInsensitiveIsEqual(NSString(), NSString()));
}

TEST(CaseInsensitiveEquality, FollowsUnicode) {
    EXPECT_FALSE(zorCaseInsensitiveIsEqual(u"\u00e9", s(u"e")));
    EXPECT_TRUE(zorCaseInsensitiveIsEqual(u"\u00c9t\u00c9", s(u"\u00e9T\u00e9")));
    EXPECT_TRUE(zorCaseInsensitiveIsEqual(u"\u00c9", s(u"e\u0301")));
    EXPECT_FALSE(zorCaseInsensitiveIsEqual(u"stra\u00dfe", s(u"strasse")));
    EXPECT_TRUE(zorCaseInsensitiveIsEqual(u"\U00010400", s(u"\U00010428")));
    EXPECT_TRUE(
        zorCaseInsensitiveIsEqual(std::u16string(u"a\xD800", 2), NSString(std::u16string(u"A\xD800", 2))));
}

TEST(DomainAndCode, MustBothMatch) {
    NSError error(u"D", 4);
    EXPECT_TRUE(zorHasDomain(error, u"D", 4));
    EXPECT_FALSE(zorHasDomain(error, u"D", 5));
    EXPECT_FALSE(zorHasDomain(error, u"E", 4));
    EXPECT_FALSE(zorHasDomain(NSError(), u"D", 0));
}

TEST(FullDescription, AddsWhatTheErrorKnows) {
    NSError error(NSCocoaErrorDomain, 4, {{s(NSFilePathErrorKey), s(u"/tmp/none.txt")}});
    EXPECT_EQ(zorFullDescription(error).utf8(),
              "<NSError Domain=NSCocoaErrorDomain Code=4 UserInfo={\n"
              "    NSFilePath = \"/tmp/none.txt\";\n"
              "    NSLocalizedDescription = \"The file \\U201cnone.txt\\U201d doesn\\U2019t exist.\";\n"
              "    NSLocalizedFailureReason = \"The file doesn\\U2019t exist.\";\n}>");
}

TEST(FullDescription, KeepsAGivenDescription) {
    NSError error(NSCocoaErrorDomain, 4, {{s(NSLocalizedDescriptionKey), s(u"Given")}});
    std::string text = zorFullDescription(error).utf8();
    EXPECT_NE(text.find("NSLocalizedDescription = Given;"), std::string::npos) << text;
}

TEST(FullDescription, NestsTheUnderlyingErrors) {
    NSError inner(u"Inner", 1);
    NSError middle(u"Middle", 2, {{s(NSUnderlyingErrorKey), inner}});
    NSError outer(u"Outer", -3, {{s(NSUnderlyingErrorKey), middle}});
    std::string text = zorFullDescription(outer).utf8();
    EXPECT_TRUE(text.starts_with("<NSError Domain=Outer Code=-3 UserInfo={")) << text;
    EXPECT_NE(text.find("NSUnderlyingError = \"<NSError Domain=Middle Code=2"), std::string::npos) << text;
    EXPECT_NE(text.find("<NSError Domain=Inner Code=1"), std::string::npos) << text;
}

TEST(FullDescription, OfNilIsNil) { EXPECT_FALSE(zorFullDescription(nullptr)); }

TEST(ZORError1, IsOfTheLibrarysDomain) {
    NSError error = ZORError1(901, {{s(u"k"), s(u"v")}});
    EXPECT_TRUE(zorHasDomain(error, u"ZORErrorDomain", 901));
    EXPECT_EQ(error.userInfo().count(), 1u);
}

} // namespace

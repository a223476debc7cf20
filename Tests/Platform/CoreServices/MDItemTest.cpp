// SPDX-License-Identifier: Apache-2.0
#include "Platform/CoreServices/MDItem.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Tests/Support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

class Keywords : public testing::Test {
protected:
    void SetUp() override { writeFile(file, "text"); }

    void set(const std::string& name, std::string_view value) {
        ASSERT_EQ(setxattr(file.c_str(), name.c_str(), value.data(), value.size(), 0), 0) << name;
    }

    static std::string binaryList(const NSObject& object) {
        return std::string(dataFromPropertyList(object, NSPropertyListBinaryFormat_v1_0, nullptr).bytes());
    }

    std::string keywords() {
        NSObject found =
            MDItem::create(stringWithFileSystemRepresentation(file)).copyAttribute(kMDItemKeywords);
        std::string joined;
        for (const NSObject& keyword : as<NSArray>(found)) joined += as<NSString>(keyword).utf8() + "|";
        return found ? joined : "nil";
    }

    TemporaryFolder folder;
    std::string file = folder.path() + "/file";
};

TEST_F(Keywords, AreNilWithoutASource) { EXPECT_EQ(keywords(), "nil"); }

TEST_F(Keywords, ComeFromThePlatformsAttribute) {
    set("user.com.apple.metadata:kMDItemKeywords", binaryList(NSArray{NSString(u"k1"), NSString(u"k2")}));
    set("user.xdg.tags", "other");
    EXPECT_EQ(keywords(), "k1|k2|");
}

TEST_F(Keywords, MayBeOneStringInXML) {
    set("user.com.apple.metadata:kMDItemKeywords", "<plist><string>k1, k2</string></plist>");
    EXPECT_EQ(keywords(), "k1, k2|");
}

TEST_F(Keywords, AreAllStringsOfTheArrayInTheirOrder) {
    set("user.com.apple.metadata:kMDItemKeywords",
        binaryList(NSArray{NSString(u""), NSString(u"k1"), NSString(u""), NSString(u"k1")}));
    EXPECT_EQ(keywords(), "|k1||k1|");
}

TEST_F(Keywords, OfTwoAttributesOfTheNameAreThoseOfTheOneThatCanBeRead) {
    const std::string good = binaryList(NSArray{NSString(u"k1")});
    const std::string own = "user.com.apple.metadata:kMDItemKeywords";
    const std::string shares = "user.DosStream.com.apple.metadata:kMDItemKeywords:$DATA";
    for (bool ownIsGood : {true, false}) {
        set(own, ownIsGood ? good : "bplist00 damaged");
        set(shares, ownIsGood ? "bplist00 damaged" : good);
        EXPECT_EQ(keywords(), "k1|") << ownIsGood;
    }
}

TEST_F(Keywords, ComeFromASambaSharesStream) {
    std::string value = binaryList(NSArray{NSString(u"k1")}) + std::string(1, '\0');
    set("user.DosStream.com.apple.metadata\xEF\x80\xA2kMDItemKeywords:$DATA", value);
    EXPECT_EQ(keywords(), "k1|");
}

TEST_F(Keywords, ComeFromDesktopTagsAsTheyStand) {
    set("user.xdg.tags", "a/b, c,,é");
    EXPECT_EQ(keywords(), "a/b| c|é|");
}

TEST_F(Keywords, ComeFromUserTagsWithoutTheirColour) {
    set("user.com.apple.metadata:_kMDItemUserTags",
        binaryList(NSArray{NSString(u"Red\n6"), NSString(u"Plain")}));
    EXPECT_EQ(keywords(), "Red|Plain|");
}

TEST_F(Keywords, OfADamagedSourceComeFromTheNext) {
    set("user.com.apple.metadata:kMDItemKeywords", "bplist00 damaged");
    set("user.xdg.tags", "tag");
    EXPECT_EQ(keywords(), "tag|");
}

TEST_F(Keywords, AreFoundThroughALink) {
    set("user.xdg.tags", "tag");
    std::string link = folder.path() + "/link";
    ASSERT_EQ(symlink("file", link.c_str()), 0);
    file = link;
    EXPECT_EQ(keywords(), "tag|");
}

TEST_F(Keywords, AreTheOnlyAttributeKnown) {
    EXPECT_FALSE(MDItem::create(NSString::fromUTF8(file)).copyAttribute(u"kMDItemTitle"));
    EXPECT_FALSE(MDItem::create(u"/none/at/all").copyAttribute(kMDItemKeywords));
}

} // namespace

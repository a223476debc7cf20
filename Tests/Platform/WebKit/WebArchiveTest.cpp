// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/WebArchive.h"

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"

#include <gtest/gtest.h>

namespace {

NSString s(const char16_t* text) { return text; }

WebArchive archiveOf(const std::string& propertyList) {
    return WebArchive::initWithData(NSData(propertyList));
}

NSData binary(const NSObject& list) {
    return dataFromPropertyList(list, NSPropertyListBinaryFormat_v1_0, nullptr);
}

// An old-style resource with the data "A".
std::string resource(const std::string& url) {
    return "{WebResourceURL=\"" + url + "\";WebResourceMIMEType=\"text/html\";WebResourceData=<41>;}";
}

TEST(WebArchive, IsReadInEveryFormOfPropertyList) {
    const std::string oldStyle = "{WebMainResource=" + resource("http://a/") + ";}";
    const NSObject list = propertyListWithData(oldStyle, nullptr, nullptr);
    for (const std::string& bytes :
         {oldStyle, std::string(binary(list).bytes()),
          std::string(dataFromPropertyList(list, NSPropertyListXMLFormat_v1_0, nullptr).bytes())}) {
        const WebArchive archive = archiveOf(bytes);
        ASSERT_TRUE(archive);
        EXPECT_EQ(archive.mainResource().URL().absoluteString(), s(u"http://a/"));
        EXPECT_EQ(archive.mainResource().MIMEType(), s(u"text/html"));
        EXPECT_EQ(archive.mainResource().data().bytes(), "A");
        EXPECT_FALSE(archive.mainResource().textEncodingName());
        EXPECT_FALSE(archive.mainResource().frameName());
        EXPECT_TRUE(archive.subresources().empty());
        EXPECT_TRUE(archive.subframeArchives().empty());
    }
}

TEST(WebArchive, NeedsAMainResourceWithURLTypeAndData) {
    for (const char* bytes :
         {"", "garbage", "text", "()", "{}", "{WebMainResource=();}", "{WebMainResource={};}",
          "{WebMainResource={WebResourceMIMEType=a;WebResourceData=<41>;};}",
          "{WebMainResource={WebResourceURL=a;WebResourceData=<41>;};}",
          "{WebMainResource={WebResourceURL=a;WebResourceMIMEType=a;};}",
          "{WebMainResource={WebResourceURL=<41>;WebResourceMIMEType=a;WebResourceData=<41>;};}",
          "{WebMainResource={WebResourceURL=a;WebResourceMIMEType=();WebResourceData=<41>;};}",
          "{WebMainResource={WebResourceURL=a;WebResourceMIMEType=a;WebResourceData=text;};}"}) {
        EXPECT_FALSE(archiveOf(bytes)) << bytes;
    }
    EXPECT_FALSE(WebArchive::initWithData(nullptr));
}

TEST(WebArchive, LeavesOutWhatIsNotUsableAndKeepsTheOrder) {
    const WebArchive archive = archiveOf("{WebMainResource=" + resource("http://a/") + ";WebSubresources=(" +
                                         resource("http://b/") + ",{},text," + resource("http://c/") +
                                         ");WebSubframeArchives=({WebMainResource=" + resource("http://d/") +
                                         ";},{},{WebMainResource=" + resource("http://e/") + ";});}");
    ASSERT_EQ(archive.subresources().size(), 2u);
    EXPECT_EQ(archive.subresources()[1].URL().absoluteString(), s(u"http://c/"));
    ASSERT_EQ(archive.subframeArchives().size(), 2u);
    EXPECT_EQ(archive.subframeArchives()[1].mainResource().URL().absoluteString(), s(u"http://e/"));
}

TEST(WebArchive, TakesValuesOfAnotherClassForMissing) {
    const WebArchive archive =
        archiveOf("{WebMainResource={WebResourceURL=a;WebResourceMIMEType=b;WebResourceData=<>;"
                  "WebResourceTextEncodingName=();WebResourceFrameName=<41>;};"
                  "WebSubresources=text;WebSubframeArchives={};}");
    ASSERT_TRUE(archive);
    EXPECT_FALSE(archive.mainResource().textEncodingName());
    EXPECT_TRUE(archive.subresources().empty());
}

std::string nested(int archives) {
    std::string list;
    for (int i = 0; i < archives; ++i)
        list += "{WebMainResource=" + resource("http://a/") + ";WebSubframeArchives=(";
    for (int i = 0; i < archives; ++i) list += ");}";
    return list;
}

TEST(WebArchive, IsRefusedWhenNestedDeeperThan64) {
    EXPECT_TRUE(archiveOf(nested(64)));
    EXPECT_FALSE(archiveOf(nested(65)));
}

// One list referred to a thousand times, a thousand times over.
TEST(WebArchive, IsRefusedWhenItGrowsByReferences) {
    NSMutableDictionary resource;
    resource.setObject(s(u"http://a/"), s(u"WebResourceURL"));
    resource.setObject(s(u"text/html"), s(u"WebResourceMIMEType"));
    resource.setObject(NSData(std::string("A")), s(u"WebResourceData"));
    const NSArray resources(std::vector<NSObject>(1000, resource.copy()));
    const NSDictionary frame{{s(u"WebMainResource"), resource.copy()}, {s(u"WebSubresources"), resources}};
    const NSDictionary list{{s(u"WebMainResource"), resource.copy()},
                            {s(u"WebSubframeArchives"), NSArray(std::vector<NSObject>(1000, frame))}};
    EXPECT_TRUE(WebArchive::initWithData(binary(frame)));
    EXPECT_FALSE(WebArchive::initWithData(binary(list)));
}

TEST(WebArchive, ComesBackFromItsOwnData) {
    const auto resource = [](const char16_t* url, const NSString& encoding) {
        return WebResource(NSData(std::string("bytes\0", 6)), NSURL::URLWithString(url), u"text/plain",
                           encoding, u"");
    };
    const WebArchive written(resource(u"http://a/", u"UTF-8"), {resource(u"http://b/", nullptr)},
                             {WebArchive(resource(u"http://c/", nullptr), {}, {})});
    const WebArchive read = WebArchive::initWithData(written.data());
    EXPECT_EQ(read.data().bytes(), written.data().bytes());
    EXPECT_EQ(read.mainResource().textEncodingName(), s(u"UTF-8"));
    EXPECT_EQ(read.mainResource().frameName(), s(u""));
    EXPECT_EQ(read.subresources().at(0).data().length(), 6u);
    EXPECT_FALSE(read.subresources().at(0).textEncodingName());
    EXPECT_EQ(read.subframeArchives().at(0).mainResource().URL().absoluteString(), s(u"http://c/"));
    EXPECT_FALSE(WebArchive().data());
}

} // namespace

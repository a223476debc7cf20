// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/MainDocument.h"

#include "Platform/WebKit/Engine/PrivateSchemes.h"

#include <gtest/gtest.h>

namespace {

struct Seen {
    std::string bytes, type, encoding;
    friend bool operator==(const Seen&, const Seen&) = default;
};

Seen seen(const std::string& bytes, const char16_t* type, const NSString& encoding = nullptr) {
    const MainDocument document(
        WebResource(NSData(bytes), NSURL::URLWithString(u"http://a/"), type, encoding, nullptr));
    gsize length = 0;
    auto data = static_cast<const char*>(g_bytes_get_data(document.bytes(), &length));
    return {std::string(data, length), document.type(), document.encoding()};
}

TEST(MainDocument, WithAnEncodingsNameIsTakenAsItIs) {
    EXPECT_EQ(seen("\xFC", u"text/html", u"windows-1252"), (Seen{"\xFC", "text/html", "windows-1252"}));
    EXPECT_EQ(seen("\xFC", u"image/png"), (Seen{"\xFC", "image/png", ""}));
}

TEST(MainDocument, WithoutANameIsReadAsItSaysOfItself) {
    EXPECT_EQ(seen("<meta charset=latin1>\xFC", u"text/html"),
              (Seen{"<meta charset=latin1>ü", "text/html", "UTF-8"}));
    EXPECT_EQ(seen("<META CHARSET=latin1>ü", u"text/html").bytes, "<META CHARSET=latin1>Ã¼");
    EXPECT_EQ(seen(std::string("\xFF\xFE\x61\x00", 4), u"text/html").bytes, "a");
}

TEST(MainDocument, ThatSaysNothingIsUTF8WhereItCanBeElseWindows1252) {
    EXPECT_EQ(seen("ü", u"text/html").bytes, "ü");
    EXPECT_EQ(seen("<meta name=a><script charset=x></script>ü", u"text/html").bytes,
              "<meta name=a><script charset=x></script>ü");
    EXPECT_EQ(seen("\xFC", u"text/plain").bytes, "ü");
    EXPECT_EQ(seen("<a>ü</a>", u"application/xhtml+xml").bytes, "<a>ü</a>");
}

TEST(MainDocument, WithoutAByteIsAnEmptyPage) {
    EXPECT_EQ(seen("", u"text/plain"), (Seen{"<!DOCTYPE html>", "text/html", ""}));
}

TEST(PrivateSchemes, AreReversible) {
    for (const char* url : {"http://a/b?c#d", "https://a/", "file:///a", "x-msg://1/", "safari-resource:/a",
                            "cid:part@mail", "unheard-of:x", ""}) {
        const std::string hidden = PrivateSchemes::privateURL(url);
        EXPECT_TRUE(PrivateSchemes::isPrivate(hidden)) << url;
        EXPECT_EQ(PrivateSchemes::publicURL(hidden), url);
    }
    EXPECT_EQ(PrivateSchemes::privateURL("https://a/"), "lkarc-https://a/");
    EXPECT_EQ(PrivateSchemes::privateURL("cid:a"), "lkarc-x:cid:a");
    EXPECT_EQ(PrivateSchemes::publicURL("http://a/"), "http://a/");
}

TEST(PrivateSchemes, LeaveTheEngineWhatItHolds) {
    EXPECT_TRUE(PrivateSchemes::isInternal("data:text/html,a"));
    EXPECT_TRUE(PrivateSchemes::isInternal("about:blank"));
    EXPECT_FALSE(PrivateSchemes::isInternal("file:///etc/passwd"));
    EXPECT_FALSE(PrivateSchemes::isInternal("aboutness:x"));
}

} // namespace

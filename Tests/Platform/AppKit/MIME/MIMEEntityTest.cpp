// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/MIME/MIMEEntity.h"

#include <gtest/gtest.h>

namespace {

TEST(MIMEEntity, GivesItsFieldsOnOneLine) {
    const MIMEEntity entity("Subject:  one\r\n two\r\nX: y\nSUBJECT: three\r\n\r\nBody: text");
    EXPECT_EQ(entity.field("subject"), "one two");
    EXPECT_EQ(entity.field("X"), "y");
    EXPECT_EQ(entity.field("Body"), "");
    EXPECT_EQ(entity.contents(), "Body: text");
}

TEST(MIMEEntity, GivesItsTypeWithParameters) {
    const MIMEEntity entity(
        "Content-Type: Text/HTML ; Charset = utf-8;\r\n\tname=\"a;b\\\"c\" ; last=x\r\n\r\n");
    EXPECT_EQ(entity.mediaType(), "text/html");
    EXPECT_EQ(entity.parameter("charset"), "utf-8");
    EXPECT_EQ(entity.parameter("NAME"), "a;b\"c");
    EXPECT_EQ(entity.parameter("last"), "x");
    EXPECT_EQ(entity.parameter("none"), "");
    EXPECT_EQ(MIMEEntity("\r\ntext").mediaType(), "text/plain");
}

TEST(MIMEEntity, DecodesItsContents) {
    EXPECT_EQ(MIMEEntity("Content-Transfer-Encoding: BASE64\n\nYWJj\n").contents(), "abc");
    EXPECT_EQ(MIMEEntity("Content-Transfer-Encoding: quoted-printable\n\na=3Db").contents(), "a=b");
    EXPECT_EQ(MIMEEntity("Content-Transfer-Encoding: 8bit\n\na=3Db").contents(), "a=3Db");
}

TEST(MIMEEntity, ConsistsOfTheParts) {
    const std::string_view head = "Content-Type: multipart/mixed; boundary=\"b b\"\r\n\r\n";
    const std::string bytes = std::string(head) + "before\r\n--b b\r\n\r\none\r\n--b bx\r\n--b b  \r\n"
                                                  "Content-Type: text/html\r\n\r\ntwo\r\n--b b--\r\nbehind";
    const std::vector<MIMEEntity> parts = MIMEEntity(bytes).parts();
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0].contents(), "one\r\n--b bx");
    EXPECT_EQ(parts[1].contents(), "two");
    EXPECT_EQ(parts[1].mediaType(), "text/html");

    EXPECT_TRUE(MIMEEntity("Content-Type: text/plain; boundary=b\n\n--b\n\nx\n--b--").parts().empty());
    EXPECT_TRUE(MIMEEntity("Content-Type: multipart/mixed\n\n--\n\nx\n----").parts().empty());
}

TEST(MIMEEntity, KeepsThePartThatIsCutOff) {
    const std::string_view bytes = "Content-Type: multipart/mixed; boundary=b\n\n--b\n\none\n--b\n\ntw";
    ASSERT_EQ(MIMEEntity(bytes).parts().size(), 2u);
    EXPECT_EQ(MIMEEntity(bytes).parts()[1].contents(), "tw");
    for (size_t length = 0; length < bytes.size(); ++length)
        EXPECT_LE(MIMEEntity(bytes.substr(0, length)).parts().size(), 2u);
}

TEST(MIMEEntity, FindsTheFirstOfATypeAtAnyDepth) {
    const std::string_view bytes = "Content-Type: multipart/related; boundary=a; start=\"<2>\"\n\n"
                                   "--a\nContent-Type: text/html\nContent-ID: <1>\n\none\n"
                                   "--a\nContent-Type: multipart/alternative; boundary=c\nContent-ID: <2>\n\n"
                                   "--c\n\nplain\n--c\nContent-Type: text/html\n\ntwo\n--c--\n--a--\n";
    const MIMEEntity entity(bytes);
    ASSERT_TRUE(entity.find("text/html"));
    EXPECT_EQ(entity.find("text/html")->contents(), "two");
    EXPECT_EQ(entity.find("text/plain")->contents(), "plain");
    EXPECT_FALSE(entity.find("image/png"));
}

TEST(MIMEEntity, BoundsPartsAndTheirDepth) {
    std::string many = "Content-Type: multipart/mixed; boundary=b\n\n";
    for (int i = 0; i < 5000; ++i) many += "--b\n\nx\n";
    EXPECT_EQ(MIMEEntity(many).parts().size(), MIMEEntity::kMostParts);

    std::string deep;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "b" + std::to_string(i);
        deep += "Content-Type: multipart/mixed; boundary=" + name + "\n\n--" + name + "\n";
    }
    EXPECT_FALSE(MIMEEntity(deep + "Content-Type: text/html\n\nx").find("text/html"));
}

TEST(MIMEEntity, IsKnownByItsFirstFields) {
    EXPECT_TRUE(startsAsMIME("From: <Saved>\r\nSubject: a\r\n b\r\nMIME-Version: 1.0\r\n\r\ntext"));
    EXPECT_TRUE(startsAsMIME("\r\nmime-version: 1.0"));
    for (std::string_view other : {"", "text", "<html>\nMIME-Version: 1.0", "A: b\n\nMIME-Version: 1.0",
                                   "two words: b\nMIME-Version: 1.0", "From: a\r\nTo: b\r\n\r\n"}) {
        EXPECT_FALSE(startsAsMIME(other)) << other;
    }
}

} // namespace

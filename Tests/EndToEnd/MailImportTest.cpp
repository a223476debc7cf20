// SPDX-License-Identifier: Apache-2.0
//
// Mail as files of any kind: its words, unlike the fixed answer that mail has as a kind of its own.
#include "Tests/EndToEnd/EndToEnd.h"

namespace {

class MailImport : public EndToEnd {
protected:
    std::string termsOf(const std::string& name, const std::string& bytes) const {
        const ToolResult result = request("SpotlightPath", write(name, bytes));
        EXPECT_EQ(result.errors, "");
        return stringIn(recordOf(result.output), u"string");
    }
};

TEST_F(MailImport, HasTheFieldsThatPeopleReadAndTheText) {
    EXPECT_EQ(termsOf("a.eml", "Received: by machine\r\nFrom: Ada <ada@example.org>\r\nTo: Bob\r\n"
                               "Subject: =?utf-8?Q?K=C3=B6ln?=\r\nX-Other: hidden\r\n\r\nthe body\r\n"),
              "ada ada@example.org bob body köln the ");
}

TEST_F(MailImport, HasEveryPartInTextAndTheNamesOfOthers) {
    EXPECT_EQ(termsOf("a.eml",
                      "Subject: s\nContent-Type: multipart/mixed; boundary=b\n\n"
                      "--b\nContent-Type: text/plain; charset=iso-8859-1\n"
                      "Content-Transfer-Encoding: quoted-printable\n\nK=F6ln\n"
                      "--b\nContent-Type: text/html; charset=windows-1251\n"
                      "Content-Transfer-Encoding: base64\n\nPHA+7ODoPC9wPg==\n"
                      "--b\nContent-Type: application/pdf\n"
                      "Content-Disposition: attachment; filename*=utf-8''Gr%C3%BC%C3%9Fe.pdf\n\nignored\n"
                      "--b\nContent-Type: message/rfc822\n\nSubject: inner\n\nforwarded\n--b--\n"),
              "forwarded grüsse.pdf inner köln s маи ");
}

TEST_F(MailImport, OfAMailboxHasAllMessages) {
    EXPECT_EQ(
        termsOf("a.mbox", "From a@b Mon\nSubject: first\n\none\n\nFrom a@b Tue\nSubject: second\n\ntwo\n"),
        "first one second two ");
    EXPECT_EQ(termsOf("b.mbox", "From "), "");
}

TEST_F(MailImport, IsBoundedInDepth) {
    std::string bytes = "Subject: deep\n\ninnermost\n";
    for (int i = 0; i < 200; ++i) bytes = "Content-Type: message/rfc822\n\n" + bytes;
    EXPECT_EQ(termsOf("a.eml", "Subject: outermost\n" + bytes), "outermost ");
}

TEST_F(MailImport, OfASavedPageHasThePage) {
    EXPECT_EQ(termsOf("a.mhtml", "From: <Saved by a browser>\nSubject: s\nMIME-Version: 1.0\n"
                                 "Content-Type: multipart/related; type=\"text/html\"; boundary=b\n\n"
                                 "--b\nContent-Type: text/html\n\n<html><p>Saved page</p></html>\n"
                                 "--b\nContent-Type: text/css\n\nbody {}\n--b--\n"),
              "page saved ");
}

} // namespace

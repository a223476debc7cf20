// SPDX-License-Identifier: Apache-2.0
//
// Web archives from the file to the record, with the engine.
#include "Tests/EndToEnd/WebArchiveTesting.h"

#include "Platform/Foundation/NSPathUtilities.h"
#include "Tests/Support/LoopbackServer.h"

#include <algorithm>

namespace {

constexpr const char* kPNG = "\x89PNG\r\n\x1a\n";

TEST_F(WebArchives, ThatAreMissingOrFoldersAreError4) {
    EXPECT_EQ(errorOf(request("WebArchivePath", path("none")).output), missingFile(path("none")));
    EXPECT_EQ(errorOf(request("WebArchivePath", folder.path()).output), missingFile(folder.path()));
}

TEST_F(WebArchives, ThatAreNoneAreError259) {
    for (const char* bytes : {"", "text", "{a=b;}", "{WebMainResource={WebResourceURL=\"http://a/\";};}"}) {
        const std::string file = write("none.webarchive", bytes);
        EXPECT_EQ(errorOf(request("WebArchivePath", file).output),
                  cocoaError(259, {{NSString(NSFilePathErrorKey), stringWithFileSystemRepresentation(file)}}))
            << bytes;
    }
}

// Of this process's own memory nothing can be read at its beginning.
TEST_F(WebArchives, ThatCannotBeReadAreReportedTwice) {
    const std::string unreadable = "/proc/self/mem";
    const ToolResult first = request("WebArchivePath", unreadable);
    EXPECT_EQ(errorOf(first.output).code(), NSFileReadUnknownError);
    ASSERT_EQ(logLines(first).size(), 1u);
    EXPECT_EQ(logLines(first)[0].rfind("NSFileHandleOperationException: ", 0), 0u);
    request("WebArchivePath", unreadable, {{"OutPath", path("record")}});
    EXPECT_EQ(errorOf(readFile(path("record"))).code(), NSFileReadCorruptFileError);
}

TEST_F(WebArchives, RecordHasTitleURLAndNoAuthorOrParts) {
    const NSDictionary record =
        recordOf(request("WebArchivePath", writePage("<title> A  title </title>text")).output);
    EXPECT_EQ(stringIn(record, u"string"), "text");
    EXPECT_EQ(stringIn(record, u"title"), "A title");
    EXPECT_EQ(stringIn(record, u"url"), "http://site.test/");
    EXPECT_EQ(stringIn(record, u"author"), "");
    EXPECT_EQ(record.get<NSDictionary>(NSString(u"otherAttributes")).count(), 1u);
}

TEST_F(WebArchives, WithOldDocumentsGiveTheirTextInWhateverEncoding) {
    EXPECT_EQ(textOf(writeArchive(WebArchive(
                  webResource("http://a.test/", "<meta charset=windows-1251>\xCF\xF0", u"text/html", nullptr),
                  {}, {}))),
              "Пр");
    EXPECT_EQ(textOf(writeArchive(WebArchive(
                  webResource("http://a.test/", "\x93\xFA\x96\x7B", u"text/plain", u"shift_jis"), {}, {}))),
              "日本");
}

TEST_F(WebArchives, HideNothingBehindTheNamesOfElements) {
    EXPECT_EQ(textOf(writePage("<body>shown<img name=documentElement alt=a><form><input name=title>"
                               "<input name=style><input name=firstChild><input name=nodeType>"
                               "<b title=t style=display:none>hidden</b></form><img name=title>"
                               "<form name=body></form><form name=getSelection></form>"
                               "<form name=querySelectorAll></form>")),
              "shown\n\n\n\n----\na\n----\nhidden\n----\nt");
}

TEST_F(WebArchives, FindResourcesByFileNameAndCaseCounts) {
    const std::string file = writePage(
        "<iframe src='https://elsewhere.test/x/one.html'></iframe><iframe src=TWO.html></iframe>"
        "<iframe src=three.html?query></iframe>",
        {webResource("http://old.test/y/one.html", "one"), webResource("http://a.test/two.html", "two"),
         webResource("http://a.test/three.html", "three")});
    EXPECT_EQ(textOf(file, preferences("{LkTextToolForceOffline=YES;}")), "\n----\none\n----\n\n----\nthree");
}

TEST_F(WebArchives, ServeTheLastOfTwoResourcesWithOneURL) {
    EXPECT_EQ(
        textOf(writePage("<iframe src=f.html></iframe>", {webResource("http://site.test/f.html", "first")},
                         {WebArchive(webResource("http://site.test/f.html", "second"), {}, {})})),
        "\n----\nsecond");
}

TEST_F(WebArchives, AnswerMessageAndBrowserLinksEmpty) {
    EXPECT_EQ(textOf(writePage("text<iframe src='x-msg://1/a.html'></iframe>"
                               "<iframe src='safari-resource:/b.html'></iframe><img src='x-msg:c'>"),
                     preferences("{LkTextToolForceOffline=YES;}")),
              "text\n----\n\n----\n");
}

TEST_F(WebArchives, ReadNoFileOfThisSystem) {
    const std::string secret = "file://" + write("secret.html", "secret");
    EXPECT_EQ(textOf(writePage("page<iframe src='" + secret + "'></iframe>")), "page\n----\n");
    const WebArchive ofFile(
        webResource("file:///home/user/a.html", "page<iframe src='" + secret + "'></iframe>"), {}, {});
    EXPECT_EQ(textOf(writeArchive(ofFile)), "page\n----\n");
}

TEST_F(WebArchives, StayWhereTheyAreWhateverThePageWants) {
    EXPECT_EQ(textOf(writePage("<meta http-equiv=refresh content='0;url=http://other.test/'>page"),
                     preferences("{LkTextToolForceOffline=YES;}")),
              "page");
    const std::string scripted =
        writePage("page<a id=a href=next.html></a><form id=f action=next.html></form><script>"
                  "document.getElementById('a').click(); document.getElementById('f').submit();"
                  "window.open('next.html');</script>",
                  {webResource("http://site.test/next.html", "next")});
    EXPECT_EQ(textOf(scripted, {{"RetryWithJavaScript", "YES"}}), "page\n");
}

TEST_F(WebArchives, HaveReplacementsForTheLoneSurrogatesOfScripts) {
    const std::string file = writePage("<script>document.write('a\\ud800b')</script>");
    EXPECT_EQ(textOf(file, {{"RetryWithJavaScript", "YES"}}), "a\uFFFDb");
}

TEST_F(WebArchives, RunScriptsOnlyWhenAsked) {
    const std::string file =
        writePage("<p id=p>off</p><noscript>none</noscript><iframe src=f.html></iframe>"
                  "<script>document.getElementById('p').textContent='on'</script>",
                  {webResource("http://site.test/f.html", "<script>document.write('frame')</script>")});
    EXPECT_EQ(textOf(file), "off\n\nnone\n----\n");
    EXPECT_EQ(textOf(file, {{"RetryWithJavaScript", "YES"}}), "on\n\n\n----\nframe");
    EXPECT_EQ(textOf(file, preferences("{LkTextToolEnableJavaScript=YES;}")), "on\n\n\n----\nframe");
    EXPECT_EQ(textOf(file, {{"RetryWithJavaScript", "1"}}), "off\n\nnone\n----\n");
}

// While a page with scripts is read, frames that never loaded announce themselves.
TEST_F(WebArchives, AreReadWithFramesThatNeverLoadedAndScripts) {
    std::string html;
    for (int i = 0; i < 7; ++i) {
        html += "<p>text<iframe src='/frame" + std::to_string(i) +
                "'></iframe><iframe srcdoc='<meta http-equiv=refresh content=\"0;url=/inner\">in'></iframe>"
                "<a id=a href=/x>link</a><script>document.getElementById('a').click()</script>";
    }
    auto variables = preferences("{LkTextToolForceOffline=YES;}");
    variables["RetryWithJavaScript"] = "YES";
    const std::string text = textOf(writePage(html), variables);
    EXPECT_EQ(text.rfind("text", 0), 0u) << text;
    EXPECT_NE(text.find("\n----\nin"), std::string::npos) << text;
}

TEST_F(WebArchives, OfTypesThatCannotBeShownAreEmpty) {
    EXPECT_EQ(
        textOf(writeArchive(WebArchive(
            webResource("http://a.test/a.bin", "bytes", u"application/octet-stream", nullptr), {}, {}))),
        "");
    EXPECT_EQ(textOf(writePage("<iframe src=a.bin></iframe>",
                               {webResource("http://site.test/a.bin", "x", u"application/zip", nullptr)})),
              "\n----\n");
    EXPECT_EQ(textOf(writeArchive(
                  WebArchive(webResource("http://a.test/a.png", kPNG, u"image/png", nullptr), {}, {}))),
              "");
}

TEST_F(WebArchives, WithoutAByteAreEmpty) {
    EXPECT_EQ(textOf(writePage("")), "");
    EXPECT_EQ(textOf(writePage("<html style='display:none'>unseen")), "\n----\nunseen");
}

TEST_F(WebArchives, FetchWhatIsMissingFromTheNetwork) {
    const LoopbackServer server(
        {{"/live.html", httpResponse("text/html", "live")},
         {"/moved", httpResponse("text/html", "", "302 Found", "Location: http://site.test/kept.html\r\n")},
         {"/on", httpResponse("text/html", "", "301 Moved", "Location: /live.html\r\n")},
         {"/locked", httpResponse("text/html", "locked", "401 Unauthorized",
                                  "WWW-Authenticate: Basic realm=\"r\"\r\n")}});
    const auto frame = [&](const char* path) { return "<iframe src='" + server.url(path) + "'></iframe>"; };
    const std::string file = writePage(frame("/live.html") + frame("/moved") + frame("/on") +
                                           frame("/locked") + "<iframe src=kept.html></iframe>",
                                       {webResource("http://site.test/kept.html", "kept")});
    EXPECT_EQ(textOf(file), "\n----\nlive\n----\nkept\n----\nlive\n----\n\n----\nkept");
    const auto requests = server.requests();
    EXPECT_EQ(requests.size(), 5u); // the redirect brings one more
    for (const std::string& request : requests) {
        EXPECT_EQ(request.rfind("GET ", 0), 0u);
        EXPECT_EQ(request.find("Cookie"), std::string::npos);
    }
}

TEST_F(WebArchives, AskTheNetworkForNothingWhenOffline) {
    const LoopbackServer server({{"/live.html", httpResponse("text/html", "live")}});
    EXPECT_EQ(textOf(writePage("page<iframe src='" + server.url("/live.html") + "'></iframe>"),
                     preferences("{LkTextToolForceOffline=YES;}")),
              "page\n----\n");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(WebArchives, AreServedNothingWhenTheHandlerIsSuppressed) {
    EXPECT_EQ(
        textOf(writePage("page<iframe src=f.html></iframe>", {webResource("http://site.test/f.html", "f")}),
               preferences("{ZORSuppressWebArchiveWorkaround=YES; LkTextToolForceOffline=YES;}")),
        "page\n----\n");
}

TEST_F(WebArchives, GiveTheTextAlsoWhenOnlyTheTitleIsWaitedFor) {
    const std::string file = writePage("<title>t</title>text");
    const ToolResult result = runTool({.arguments = {"-WebArchivePath", file, "-SkipBody", "YES"}});
    EXPECT_EQ(stringIn(recordOf(result.output), u"title"), "t");
    EXPECT_EQ(textOf(result), "text");
}

} // namespace

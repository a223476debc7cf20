// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/TextLoader.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSURLCache.h"
#include "Tests/Support/WebKit/FakeWebView.h"
#include "ZORFoundation/Source/ZORWebArchiveURLProtocol.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using Kind = DOMNode::Kind;

class OpenTextLoader : public TextLoader {
public:
    using TextLoader::_justTitle;
    using TextLoader::_timeoutDate;
    using TextLoader::_view;
    using TextLoader::webViewDecidePolicyForMIMEType;
};

std::string joined(const std::vector<NSString>& chunks) {
    std::string text;
    for (const NSString& chunk : chunks) text += "[" + chunk.utf8() + "]";
    return text;
}

std::string chunksOf(DOMTreeBuilder& builder) {
    std::vector<NSString> chunks;
    TextLoader::appendInvisibleChunksFromNode(builder.finish(), chunks);
    return joined(chunks);
}

class TextLoaderTest : public testing::Test {
protected:
    void SetUp() override {
        setenv("XDG_CONFIG_HOME", "/nonexistent", 1);
        unsetenv("RetryWithJavaScript");
        ASSERT_TRUE(loader.init(FakeWebView::make, nullptr));
        view = FakeWebView::last;
        page = view->page;
        loop.events = {[this] { loader.webViewDidStartProvisionalLoadForFrame(*view, view->main); },
                       [this] { loader.webViewDidFinishLoadForFrame(*view, view->main); }};
    }
    void TearDown() override {
        NSURLProtocol::unregisterClass(ZORWebArchiveURLProtocol::protocolClass());
        unsetenv("NSDebugEnabled");
        unsetenv("RetryWithJavaScript");
    }

    std::shared_ptr<FakePage> addChild(const std::u16string& text) {
        auto child = std::make_shared<FakePage>();
        child->documentView = WebDocumentView::withText(text);
        page->children.push_back(child);
        return child;
    }

    static WebArchive archive() {
        return WebArchive(WebResource(NSData(std::string("text")), NSURL::URLWithString(u"http://a.test/"),
                                      u"text/html", nullptr, nullptr),
                          {}, {});
    }

    OpenTextLoader loader;
    FakeWebView* view = nullptr;
    std::shared_ptr<FakePage> page;
    FakeRunLoop loop;
};

TEST_F(TextLoaderTest, AnEmptyPageGivesTheEmptyString) {
    page->document = DOMTreeBuilder().finish();
    EXPECT_EQ(loader.text(), NSString(u""));
}

TEST_F(TextLoaderTest, ALineFeedAloneIsKept) {
    page->documentView = WebDocumentView::withText(u"\n");
    EXPECT_EQ(loader.text(), NSString(u"\n"));
}

TEST_F(TextLoaderTest, ValidStringsAreNeitherEmptyNorALineFeed) {
    EXPECT_FALSE(TextLoader::isStringValid(nullptr));
    EXPECT_FALSE(TextLoader::isStringValid(u""));
    EXPECT_FALSE(TextLoader::isStringValid(u"\n"));
    EXPECT_TRUE(TextLoader::isStringValid(u"\n\n"));
    EXPECT_TRUE(TextLoader::isStringValid(u" "));
}

TEST_F(TextLoaderTest, TheSeparatorStandsBeforeEveryChunkAlsoBehindNoText) {
    DOMTreeBuilder builder;
    builder.openElement({Kind::htmlImageElement, u"", u"alternative", u"title"});
    page->document = builder.finish();
    EXPECT_EQ(loader.text().utf8(), "\n----\nalternative\n----\ntitle");
}

TEST_F(TextLoaderTest, TwoEmptyChildFramesEndTheTextWithTwoSeparators) {
    page->documentView = WebDocumentView::withText(u"main");
    addChild(u"");
    addChild(u"");
    EXPECT_EQ(loader.text().utf8(), "main\n----\n\n----\n");
}

TEST_F(TextLoaderTest, FramesFollowInChildOrderDepthFirst) {
    page->documentView = WebDocumentView::withText(u"main");
    auto first = addChild(u"first");
    addChild(u"second");
    auto inner = std::make_shared<FakePage>();
    inner->documentView = WebDocumentView::withText(u"inner");
    first->children.push_back(inner);
    EXPECT_EQ(loader.text().utf8(), "main\n----\nfirst\n----\ninner\n----\nsecond");
}

TEST_F(TextLoaderTest, AFrameWithoutTextContributesItsChildrenOnly) {
    setenv("NSDebugEnabled", "YES", 1);
    page->documentView = WebDocumentView::withoutText();
    addChild(u"child");
    testing::internal::CaptureStderr();
    const NSString text = loader.text();
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(text.utf8(), "\n----\nchild");
    EXPECT_NE(log.find("<WebDocumentView> doesn't conform to WebDocumentText"), std::string::npos) << log;
    page->documentView = WebDocumentView();
    EXPECT_EQ(loader.text().utf8(), "\n----\nchild");
}

TEST_F(TextLoaderTest, TheDocumentIsAskedForBeforeItsTextIsUsed) {
    std::vector<std::string> log;
    page->log = &log;
    loader.text();
    EXPECT_EQ(log, (std::vector<std::string>{"documentView", "DOMDocument", "DOMDocument"}));
}

TEST_F(TextLoaderTest, AnEmptyTextIsADebugLine) {
    setenv("NSDebugEnabled", "YES", 1);
    testing::internal::CaptureStderr();
    loader.text();
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Still no string for <WebDocumentView>"),
              std::string::npos);
}

TEST(InvisibleChunks, AnElementIsHiddenByItsOwnStyleInAnyCase) {
    for (const char16_t* display : {u"none", u"NONE", u"None"}) {
        DOMTreeBuilder builder;
        builder.openElement({Kind::element, display, u"", u""});
        builder.addText(u"hidden");
        EXPECT_EQ(chunksOf(builder), "[hidden]");
    }
    DOMTreeBuilder builder;
    builder.openElement({Kind::htmlElement, u"block", u"", u""});
    builder.addText(u"shown");
    EXPECT_EQ(chunksOf(builder), "");
}

TEST(InvisibleChunks, AHiddenElementWithoutTextAddsNothing) {
    DOMTreeBuilder builder;
    builder.openElement({Kind::htmlElement, u"none", u"", u""});
    builder.addOther();
    EXPECT_EQ(chunksOf(builder), "");
}

TEST(InvisibleChunks, NestedHiddenElementsComeOnceForEachAncestor) {
    DOMTreeBuilder builder;
    builder.openElement({Kind::htmlElement, u"none", u"", u"outer"});
    builder.addText(u"a");
    builder.openElement({Kind::htmlElement, u"none", u"", u"inner"});
    builder.addText(u"b");
    builder.closeElement();
    builder.addText(u"c");
    builder.closeElement();
    EXPECT_EQ(chunksOf(builder), "[abc][outer][b][inner]");
}

TEST(InvisibleChunks, AHiddenImageGivesTextThenAlternativeThenTitle) {
    DOMTreeBuilder builder;
    builder.openElement({Kind::htmlImageElement, u"none", u"alternative", u"title"});
    builder.addText(u" ");
    EXPECT_EQ(chunksOf(builder), "[ ][alternative][title]");
}

TEST(InvisibleChunks, OnlyHTMLElementsHaveTitlesAndOnlyImagesAlternatives) {
    DOMTreeBuilder builder;
    builder.openElement({Kind::element, u"", u"alternative", u"title"});
    builder.closeElement();
    builder.openElement({Kind::htmlElement, u"", u"alternative", u"title"});
    EXPECT_EQ(chunksOf(builder), "[title]");
}

TEST(InvisibleChunks, AreNeitherTrimmedNorSortedOut) {
    DOMTreeBuilder builder;
    for (int i = 0; i < 2; ++i) {
        builder.openElement({Kind::htmlElement, u"", u"", u" same "});
        builder.closeElement();
    }
    EXPECT_EQ(chunksOf(builder), "[ same ][ same ]");
}

TEST(InvisibleChunks, OfADeepDocumentDoNotExhaustTheStack) {
    DOMTreeBuilder builder;
    for (int i = 0; i < 300'000; ++i) builder.openElement({Kind::htmlElement, u"", u"", u""});
    builder.openElement({Kind::htmlElement, u"", u"", u"bottom"});
    EXPECT_EQ(chunksOf(builder), "[bottom]");
}

TEST(InvisibleChunks, EndBeforeTheyFillTheMemory) {
    DOMTreeBuilder builder;
    for (int i = 0; i < 400; ++i) builder.openElement({Kind::htmlElement, u"none", u"", u""});
    builder.addText(std::u16string(1'000'000, u'x'));
    std::vector<NSString> chunks;
    TextLoader::appendInvisibleChunksFromNode(builder.finish(), chunks);
    EXPECT_EQ(chunks.size(), 68u); // the first that goes beyond 64 Mi units is the last
}

TEST(InvisibleChunks, OfNilAreNone) {
    std::vector<NSString> chunks;
    TextLoader::appendInvisibleChunksFromNode(nullptr, chunks);
    EXPECT_TRUE(chunks.empty());
}

TEST(InvisibleChunks, AreDebugLines) {
    setenv("NSDebugEnabled", "YES", 1);
    DOMTreeBuilder builder;
    builder.openElement({Kind::htmlElement, u"", u"", u"a title"});
    testing::internal::CaptureStderr();
    chunksOf(builder);
    unsetenv("NSDebugEnabled");
    EXPECT_NE(testing::internal::GetCapturedStderr().find("node: <DOMHTMLElement> string: a title"),
              std::string::npos);
}

TEST_F(TextLoaderTest, InstallsACacheThatHasNothing) {
    NSURLCache& cache = NSURLCache::sharedURLCache();
    EXPECT_EQ(cache.memoryCapacity(), 1024u);
    EXPECT_EQ(cache.diskCapacity(), 1024u);
    EXPECT_TRUE(cache.diskPath().text().ends_with(u"/texttool_tests")) << cache.diskPath().utf8();
    const NSURLRequest request(NSURL::URLWithString(u"http://a.test/"));
    cache.storeCachedResponse({{}, NSData(std::string("x"))}, request);
    EXPECT_FALSE(cache.cachedResponseForRequest(request));
}

TEST_F(TextLoaderTest, UsesEveryMIMEType) {
    struct Listener : WebPolicyDecisionListener {
        void use() override { isUsed = true; }
        void ignore() override {}
        bool isUsed = false;
    } listener;
    loader.webViewDecidePolicyForMIMEType(*view, u"application/x-unheard-of", nullptr, view->main, listener);
    EXPECT_TRUE(listener.isUsed);
}

TEST_F(TextLoaderTest, LoadsWithScriptsAppletsAndPlugInsOff) {
    WebArchive loaded;
    page->onLoad = [&](const WebArchive& given) { loaded = given; };
    loader.loadWebArchive(archive());
    EXPECT_EQ(loaded.mainResource().MIMEType(), NSString(u"text/html"));
    EXPECT_FALSE(view->preferences().javaScriptEnabled());
    EXPECT_FALSE(view->preferences().javaEnabled());
    EXPECT_FALSE(view->preferences().plugInsEnabled());
}

TEST_F(TextLoaderTest, RunsScriptsWhenTheEnvironmentSaysYESExactly) {
    setenv("RetryWithJavaScript", "yes", 1);
    loader.loadWebArchive(archive());
    EXPECT_FALSE(view->preferences().javaScriptEnabled());
    setenv("RetryWithJavaScript", "YES", 1);
    loop.events = {[this] { loader.webViewDidStartProvisionalLoadForFrame(*view, nullptr); }};
    loader.loadWebArchive(archive());
    EXPECT_TRUE(view->preferences().javaScriptEnabled());
}

TEST_F(TextLoaderTest, WaitsTwentySecondsAtMostAndNotLongerAfterTheEnd) {
    const double before = NSDate::now().timeIntervalSinceReferenceDate();
    loader.loadWebArchive(archive());
    EXPECT_NEAR(loader._timeoutDate.timeIntervalSinceReferenceDate() - before, 20, 1);
    EXPECT_EQ(view->timeoutDate(), loader._timeoutDate);
    ASSERT_EQ(loop.runs.size(), 3u);
    EXPECT_LE(loop.runs[2], 0);
}

TEST_F(TextLoaderTest, ServesTheArchiveInPlaceOfTheLoader) {
    loader.loadWebArchive(archive());
    const NSURLRequest request = view->resourceLoadDelegate()->webViewResourceWillSendRequest(
        *view, NSURLRequest(NSURL::URLWithString(u"http://a.test/")), nullptr, nullptr);
    EXPECT_EQ(request.cachePolicy(), NSURLRequestReloadIgnoringLocalCacheData);
    EXPECT_EQ(zorArchivedResource(request).get<NSString>(NSString(u"mimeType")), NSString(u"text/html"));
    EXPECT_EQ(NSURLProtocol::classForRequest(request), &ZORWebArchiveURLProtocol::protocolClass());
    EXPECT_FALSE(loader._justTitle);
}

TEST_F(TextLoaderTest, RaisesWhenTheHandlerIsRefused) {
    const auto& handler = ZORWebArchiveURLProtocol::protocolClass();
    while (NSURLProtocol::registerClass(handler)) {
    }
    try {
        loader.loadWebArchive(archive());
        ADD_FAILURE() << "nothing was raised";
    } catch (const NSException& exception) {
        EXPECT_EQ(exception.name(), NSString(NSInternalInconsistencyException));
        EXPECT_EQ(exception.reason(), NSString(u"Invalid parameter not satisfying: ok"));
    }
}

} // namespace

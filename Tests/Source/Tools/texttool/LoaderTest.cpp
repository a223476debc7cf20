// SPDX-License-Identifier: Apache-2.0
#include "Source/Tools/texttool/Loader.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSURLCache.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/WebKit/FakeWebView.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

double now() { return NSDate::now().timeIntervalSinceReferenceDate(); }

class OpenLoader : public Loader {
public:
    using Loader::_justTitle;
    using Loader::_objectsLoading;
    using Loader::_timeoutDate;
    using Loader::_view;

    void postProgress(double progress) override { progresses.push_back(progress); }
    void progressFinished(const NSNotification& notification) override {
        ++finished;
        Loader::progressFinished(notification);
    }

    std::vector<double> progresses;
    int finished = 0;
};

struct Listener : WebPolicyDecisionListener {
    void use() override { answer += "use"; }
    void ignore() override { answer += "ignore"; }
    std::string answer;
};

class LoaderTest : public testing::Test {
protected:
    void SetUp() override {
        unsetenv("NSDebugEnabled");
        setenv("XDG_CONFIG_HOME", "/nonexistent", 1);
        ASSERT_TRUE(loader.init(FakeWebView::make, nullptr));
        view = FakeWebView::last;
    }
    void TearDown() override { unsetenv("NSDebugEnabled"); }

    std::string loggedWhileWaiting() {
        testing::internal::CaptureStderr();
        loader.waitUntilDone();
        return testing::internal::GetCapturedStderr();
    }

    OpenLoader loader;
    FakeWebView* view = nullptr;
    FakeRunLoop loop;
    NSError error{NSURLErrorDomain, -1};
};

TEST_F(LoaderTest, MakesAViewOf612By612AndIsItsDelegate) {
    EXPECT_EQ(view->frame, (NSRect{{0, 0}, {612, 612}}));
    EXPECT_TRUE(view->frameLoadDelegate());
    EXPECT_TRUE(view->policyDelegate());
    EXPECT_TRUE(view->resourceLoadDelegate());
}

TEST_F(LoaderTest, TakesTheSharedCachesContentsAndCapacity) {
    NSURLCache::setSharedURLCache(std::make_unique<NSURLCache>(100, 100, nullptr));
    const NSURLRequest request(NSURL::URLWithString(u"http://a.test/"));
    NSURLCache::sharedURLCache().storeCachedResponse({{}, NSData(std::string("x"))}, request);
    OpenLoader other;
    ASSERT_TRUE(other.init(FakeWebView::make, nullptr));
    NSURLCache& cache = NSURLCache::sharedURLCache();
    EXPECT_EQ(cache.memoryCapacity(), 0u);
    EXPECT_EQ(cache.diskCapacity(), 0u);
    EXPECT_FALSE(cache.cachedResponseForRequest(request));
}

TEST_F(LoaderTest, FailsWithTheErrorOfAViewThatCannotBeMade) {
    OpenLoader other;
    NSError why;
    auto refuse = [](const NSRect&, const NSString&, const NSString&,
                     NSError* out) -> std::unique_ptr<WebView> {
        fail(out, NSError(NSCocoaErrorDomain, NSExecutableLoadError));
        return nullptr;
    };
    EXPECT_FALSE(other.init(refuse, &why));
    EXPECT_EQ(why.code(), NSExecutableLoadError);
}

TEST_F(LoaderTest, WithNothingToWaitForRunsNoPassButTheExtraWait) {
    loader.waitUntilDone();
    EXPECT_TRUE(loader.progresses.empty());
    ASSERT_EQ(loop.runs.size(), 1u);
    EXPECT_NEAR(loop.runs[0], 2, 0.05);
}

TEST_F(LoaderTest, WaitsInStepsOfAFifthOfASecondUntilEveryFrameHasEnded) {
    loader.startLoading();
    const WebFrame inner = fakeFrame(std::make_shared<FakePage>());
    loop.events = {[&] { loader.webViewDidStartProvisionalLoadForFrame(*view, view->main); },
                   [&] {
                       view->progress = 0.5;
                       loader.webViewDidStartProvisionalLoadForFrame(*view, inner);
                       loader.webViewDidFinishLoadForFrame(*view, view->main);
                   },
                   [&] { loader.webViewDidFailLoadWithErrorForFrame(*view, error, inner); }};
    loader.waitUntilDone();
    ASSERT_EQ(loop.runs.size(), 4u);
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(loop.runs[size_t(i)], 0.2, 0.05);
    EXPECT_EQ(loader.progresses, (std::vector<double>{0, 0, 0.5}));
}

TEST_F(LoaderTest, ADeadlineEndsTheWaitOnlyWhenItIsPast) {
    loader.startLoading();
    loader._timeoutDate = NSDate(now() + 0.05);
    loop.events = {[] {}, [] {}, [&] { loader._timeoutDate = NSDate(now() - 0.001); }};
    const std::string log = loggedWhileWaiting();
    EXPECT_EQ(loop.runs.size(), 4u);
    EXPECT_EQ(loader._objectsLoading.size(), 1u);
    EXPECT_EQ(log, "");
}

TEST_F(LoaderTest, ATimeoutSaysSoInTheDebugLogBeforeTheExtraWait) {
    setenv("NSDebugEnabled", "YES", 1);
    loader.startLoading();
    loader._timeoutDate = NSDate(now() - 1);
    const std::string log = loggedWhileWaiting();
    const size_t loading = log.find("loading: (\n    rootPage\n)"), timeout = log.find("Timing out"),
                 extra = log.find("Extra wait for WebView to finish loading"),
                 done = log.find("done loading: (\n    rootPage\n)");
    ASSERT_NE(done, std::string::npos) << log;
    EXPECT_TRUE(loading < timeout && timeout < extra && extra < done) << log;
}

TEST_F(LoaderTest, ARequestForTheTitleEndsBeforeAnyStepWhenTheTitleIsKnown) {
    loader.startLoading();
    loader._justTitle = true;
    view->page->title = u"Known";
    loader.waitUntilDone();
    ASSERT_EQ(loop.runs.size(), 1u);
    EXPECT_LE(loop.runs[0], 0); // no extra wait either
    EXPECT_EQ(loader.pageTitle(), NSString(u"Known"));
}

TEST_F(LoaderTest, ARequestForTheTitleEndsWhenTheTitleComes) {
    loader.startLoading();
    loader._justTitle = true;
    loop.events = {[] {}, [&] { view->page->title = u"Late"; }};
    loader.waitUntilDone();
    EXPECT_EQ(loop.runs.size(), 3u);
}

TEST_F(LoaderTest, HasNoTitleWithoutADataSource) {
    view->page->title = u"t";
    view->page->hasDataSource = false;
    EXPECT_FALSE(loader.pageTitle());
}

TEST_F(LoaderTest, ANilFrameTakesThePlaceholderAwayAndIsLoggedAlways) {
    loader.startLoading();
    loop.events = {[&] { loader.webViewDidStartProvisionalLoadForFrame(*view, nullptr); }};
    const std::string log = loggedWhileWaiting();
    EXPECT_EQ(loop.runs.size(), 2u);
    EXPECT_NE(log.find("didStartProvisionalLoadForFrame got nil frame"), std::string::npos);
}

TEST_F(LoaderTest, AFrameThatStartedTwiceIsGoneWhenItHasEndedOnce) {
    loader.startLoading();
    loader.startLoading();
    loader.webViewDidStartProvisionalLoadForFrame(*view, view->main);
    loader.webViewDidStartProvisionalLoadForFrame(*view, view->main);
    EXPECT_EQ(loader._objectsLoading.size(), 2u);
    loader.webViewDidFailProvisionalLoadWithErrorForFrame(*view, error, view->main);
    EXPECT_TRUE(loader._objectsLoading.empty());
    EXPECT_EQ(loader.error(), error);
}

TEST_F(LoaderTest, KeepsTheLastError) {
    const NSError second(NSURLErrorDomain, -2);
    loader.webViewDidFailProvisionalLoadWithErrorForFrame(*view, error, view->main);
    loader.webViewDidFailLoadWithErrorForFrame(*view, second, view->main);
    EXPECT_EQ(loader.error(), second);
}

TEST_F(LoaderTest, DebugLinesTellOfEveryFrame) {
    setenv("NSDebugEnabled", "YES", 1);
    testing::internal::CaptureStderr();
    loader.webViewDidStartProvisionalLoadForFrame(*view, view->main);
    loader.webViewDidFinishLoadForFrame(*view, view->main);
    loader.webViewDidFailProvisionalLoadWithErrorForFrame(*view, error, view->main);
    loader.webViewDidFailLoadWithErrorForFrame(*view, error, view->main);
    const std::string log = testing::internal::GetCapturedStderr();
    for (const char* line :
         {"didStartProvisionalLoadForFrame: <WebFrame>", "didFinishLoadForFrame: <WebFrame>",
          "didFailProvisionalLoadWithError: <NSError", "didFailLoadWithError: <NSError"}) {
        EXPECT_NE(log.find(line), std::string::npos) << line;
    }
}

TEST_F(LoaderTest, UsesNavigationsOfType5AndIgnoresTheOthers) {
    for (int type = 0; type <= 6; ++type) {
        Listener listener;
        loader.webViewDecidePolicyForNavigationAction(
            *view, {{NSString(WebActionNavigationTypeKey), NSNumber::withInt(type)}}, nullptr, view->main,
            listener);
        EXPECT_EQ(listener.answer, type == 5 ? "use" : "ignore") << type;
    }
}

TEST_F(LoaderTest, IgnoresNewWindowsOfEveryType) {
    Listener listener;
    loader.webViewDecidePolicyForNewWindowAction(
        *view, {{NSString(WebActionNavigationTypeKey), NSNumber::withInt(5)}}, nullptr, u"new", listener);
    EXPECT_EQ(listener.answer, "ignore");
}

TEST_F(LoaderTest, RefusesPasswordsAndKeepsTheError) {
    struct Sender : NSURLAuthenticationChallengeSender {
        void cancelAuthenticationChallenge(const NSURLAuthenticationChallenge&) override { ++cancelled; }
        int cancelled = 0;
    } sender;
    loader.webViewResourceDidReceiveAuthenticationChallenge(*view, {sender}, nullptr);
    EXPECT_EQ(sender.cancelled, 1);
    EXPECT_EQ(loader.error(), NSError(NSURLErrorDomain, -1013));
}

TEST_F(LoaderTest, HearsWhenItsOwnViewHasFinished) {
    int other = 0;
    auto& center = NSNotificationCenter::defaultCenter();
    center.postNotification({NSString(WebViewProgressFinishedNotification), view});
    center.postNotification({NSString(WebViewProgressFinishedNotification), &other});
    EXPECT_EQ(loader.finished, 1);
}

TEST_F(LoaderTest, SettingsHaveDefaults) {
    EXPECT_EQ(loader.webToolTimeout(), 60);
    EXPECT_FALSE(loader.shouldEnablePlugIns());
    EXPECT_EQ(loader.maxTriesBeforeTimeout(), 3u);
    EXPECT_EQ(loader.webToolExtraLoadingTime(), 2);
    EXPECT_EQ(loader.margin(), 36.0);
    loader._justTitle = true;
    EXPECT_EQ(loader.webToolExtraLoadingTime(), 0);
}

// Stored preferences are read once in a process, so that these want one of their own.
TEST(LoaderSettings, ComeFromTheHostsDomain) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    TemporaryFolder folder;
    writeFile(folder.path() + "/org.larkspur.Larkspur.plist",
              "{WebToolTimeout=7; WebToolEnableWebPlugIns=YES; WebToolMaxTriesBeforeTimeout=9;"
              " WebToolExtraLoadingTime=1; Web2PDFPageMargin=12;}");
    auto check = [&] {
        setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
        OpenLoader loader;
        const bool isRight = loader.webToolTimeout() == 7 && loader.shouldEnablePlugIns() &&
                             loader.maxTriesBeforeTimeout() == 9 && loader.webToolExtraLoadingTime() == 1 &&
                             loader.margin() == 12.0;
        exit(isRight ? 0 : 1);
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0), "");
}

} // namespace

// SPDX-License-Identifier: Apache-2.0
//
// The engine through its view, without the tool and without its sandbox.
#include "Platform/WebKit/Engine/EngineView.h"

#include "Platform/Foundation/NSNotificationCenter.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/WebKit/DisplayServer.h"
#include "Platform/WebKit/Engine/Surroundings.h"
#include "ZORFoundation/Source/WebDataSource+ZORWebArchive.h"
#include "ZORFoundation/Source/ZORWebArchiveURLProtocol.h"
#include "ZORFoundation/Source/ZORWebArchiveWebResourceLoadDelegate.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

WebResource resource(const char16_t* url, const char* bytes, const char16_t* type = u"text/html") {
    return WebResource(NSData(std::string(bytes)), NSURL::URLWithString(url), type, u"UTF-8", nullptr);
}

// One display for all tests of a process: the toolkit connects to no second one.
bool hasToolkit() {
    static DisplayServer display;
    static const bool started = [] {
        NSString why;
        WebEngineSurroundings where;
        where.display = display.name(&why);
        return !where.display.empty() && startToolkit(where);
    }();
    return started;
}

// Writes down what the view tells, and lets it go on.
class Observer : public WebFrameLoadDelegate, public WebPolicyDelegate {
public:
    void webViewDidStartProvisionalLoadForFrame(WebView&, const WebFrame& frame) override {
        note("start", frame);
    }
    void webViewDidFinishLoadForFrame(WebView&, const WebFrame& frame) override { note("finish", frame); }
    void webViewDidFailProvisionalLoadWithErrorForFrame(WebView&, const NSError&,
                                                        const WebFrame& frame) override {
        note("fail", frame);
    }
    void webViewDidFailLoadWithErrorForFrame(WebView&, const NSError&, const WebFrame& frame) override {
        note("break", frame);
    }
    void webViewDecidePolicyForNavigationAction(WebView&, const NSDictionary& information,
                                                const NSURLRequest& request, const WebFrame&,
                                                WebPolicyDecisionListener& listener) override {
        const auto type = information.get<NSNumber>(NSString(WebActionNavigationTypeKey));
        navigations.emplace_back(request.URL().absoluteString().utf8(), int(type.integerValue()));
        listener.use();
    }
    void webViewDecidePolicyForNewWindowAction(WebView&, const NSDictionary&, const NSURLRequest&,
                                               const NSString&,
                                               WebPolicyDecisionListener& listener) override {
        listener.ignore();
    }

    bool isOver() const { return std::count(log.begin(), log.end(), "finish main") || contains("fail main"); }
    bool contains(const char* entry) const { return std::count(log.begin(), log.end(), entry) > 0; }

    WebFrame main;
    std::vector<std::string> log;
    std::vector<std::pair<std::string, int>> navigations;

private:
    void note(const std::string& what, const WebFrame& frame) {
        log.push_back(what + (frame == main ? " main" : " frame"));
    }
};

class Engine : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(hasToolkit()) << "there is no display server Xvfb";
        NSURLProtocol::registerClass(ZORWebArchiveURLProtocol::protocolClass());
        view = std::make_unique<EngineView>(NSRect{{0, 0}, {612, 612}}, WebEngineSurroundings(),
                                            EXTENSION_FOLDER);
        observer.main = view->mainFrame();
        view->setFrameLoadDelegate(&observer);
        view->setPolicyDelegate(&observer);
        view->setResourceLoadDelegate(&resources);
        view->preferences().setJavaScriptEnabled(false);
        resources.setOffline(true);
        resources.setWorkaroundEnabled(true);
    }
    void TearDown() override { NSURLProtocol::unregisterClass(ZORWebArchiveURLProtocol::protocolClass()); }

    void load(const WebArchive& archive) {
        resources.setWebArchive(archive);
        view->mainFrame().loadArchive(archive);
        EXPECT_TRUE(observer.log.empty()) << "delegates are called while the run loop runs";
        waitFor([this] { return observer.isOver(); });
    }
    template <class Condition>
    void waitFor(const Condition& condition) {
        for (int step = 0; step < 200 && !condition(); ++step) {
            const double now = NSDate::now().timeIntervalSinceReferenceDate();
            NSRunLoop::currentRunLoop().runUntilDate(NSDate(now + 0.05));
        }
        EXPECT_TRUE(condition());
    }

    Observer observer;
    ZORWebArchiveWebResourceLoadDelegate resources;
    std::unique_ptr<EngineView> view;
};

TEST_F(Engine, TellsOfEveryFrameAndOfTheEnd) {
    int finished = 0;
    NSNotificationCenter::defaultCenter().addObserver(
        this, [&](const NSNotification&) { ++finished; }, NSString(WebViewProgressFinishedNotification),
        view.get());
    EXPECT_LT(view->estimatedProgress(), 1);
    load(WebArchive(resource(u"http://a.test/", "<title>t</title>a<iframe src=b.html></iframe>"),
                    {resource(u"http://a.test/b.html", "b")}, {}));
    NSNotificationCenter::defaultCenter().removeObserver(this);
    EXPECT_EQ(observer.log.front(), "start main");
    EXPECT_TRUE(observer.contains("start frame"));
    waitFor([this] { return observer.contains("finish frame"); });
    EXPECT_EQ(finished, 1);
    EXPECT_EQ(view->estimatedProgress(), 1);
    using Navigations = std::vector<std::pair<std::string, int>>;
    EXPECT_EQ(observer.navigations, (Navigations{{"http://a.test/", WebNavigationTypeOther},
                                                 {"http://a.test/b.html", WebNavigationTypeOther}}));
    EXPECT_EQ(view->mainFrame(), view->mainFrame());
    EXPECT_EQ(view->mainFrame().dataSource().pageTitle(), NSString(u"t"));
}

TEST_F(Engine, ShowsFramesAsTheyStandInTheDocument) {
    load(WebArchive(
        resource(u"http://a.test/", "<p>a<iframe src=b.html></iframe><iframe src='http://c.test/'></iframe>"),
        {resource(u"http://a.test/b.html", "b"), resource(u"http://c.test/", "<i title=t>c</i>")}, {}));
    const auto frames = view->mainFrame().childFrames();
    ASSERT_EQ(frames.size(), 2u);
    EXPECT_EQ(frames[0].frameView().documentView.string(), NSString(u"b"));
    EXPECT_EQ(frames[1].frameView().documentView.string(), NSString(u"c"));
    EXPECT_EQ(frames[1].DOMDocument().textContent(), NSString(u"c"));
    EXPECT_TRUE(frames[1].childFrames().empty());
}

TEST_F(Engine, RefusesWhatItCannotShow) {
    load(WebArchive(resource(u"http://a.test/", "bytes", u"application/octet-stream"), {}, {}));
    EXPECT_EQ(observer.log, (std::vector<std::string>{"start main", "fail main"}));
    EXPECT_FALSE(view->mainFrame().frameView().documentView);
    EXPECT_FALSE(view->mainFrame().DOMDocument());
}

TEST_F(Engine, FollowsTheProgramsOwnRedirectionButNeverLosesTheDocumentOverARefusal) {
    load(WebArchive(resource(u"http://a.test/", "<meta http-equiv=refresh content='0;url=b.html'>a"),
                    {resource(u"http://a.test/b.html", "<meta http-equiv=refresh content='0;url=c.html'>b")},
                    {}));
    waitFor([this] { return observer.contains("fail main"); });
    EXPECT_EQ(view->mainFrame().frameView().documentView.string(), NSString(u"b"));
}

TEST_F(Engine, GivesWhatItShowedForAnArchiveThatShowsTheSame) {
    load(WebArchive(
        resource(u"http://a.test/", "<title>t</title>a<img src=i.png><iframe src=b.html></iframe>"),
        {resource(u"http://a.test/i.png", "i", u"image/png")},
        {WebArchive(resource(u"http://a.test/b.html", "b<iframe src=c.html></iframe>"), {},
                    {WebArchive(resource(u"http://a.test/c.html", "c"), {}, {})})}));
    const WebArchive archive = WebArchive::initWithData(zorWebArchive(view->mainFrame().dataSource()).data());
    EXPECT_EQ(archive.mainResource().URL().absoluteString(), NSString(u"http://a.test/"));
    ASSERT_EQ(archive.subresources().size(), 1u);
    EXPECT_EQ(archive.subresources()[0].URL().absoluteString(), NSString(u"http://a.test/i.png"));
    ASSERT_EQ(archive.subframeArchives().size(), 1u);
    EXPECT_EQ(archive.subframeArchives()[0].mainResource().data().bytes(), "b<iframe src=c.html></iframe>");
    ASSERT_EQ(archive.subframeArchives()[0].subframeArchives().size(), 1u);
    EXPECT_EQ(archive.subframeArchives()[0].subframeArchives()[0].mainResource().data().bytes(), "c");

    observer.log.clear();
    view =
        std::make_unique<EngineView>(NSRect{{0, 0}, {612, 612}}, WebEngineSurroundings(), EXTENSION_FOLDER);
    observer.main = view->mainFrame();
    view->setFrameLoadDelegate(&observer);
    view->setResourceLoadDelegate(&resources);
    view->preferences().setJavaScriptEnabled(false);
    load(archive);
    EXPECT_EQ(view->mainFrame().childFrames().at(0).childFrames().at(0).frameView().documentView.string(),
              NSString(u"c"));
}

TEST_F(Engine, LetsDocumentsHaveTheirOwnAddress) {
    view->preferences().setJavaScriptEnabled(true);
    load(WebArchive(resource(u"http://A.test", "<script>document.write(document.URL, ' ', innerWidth, 'x', "
                                               "innerHeight, ' ', document.visibilityState)</script>"),
                    {}, {}));
    EXPECT_EQ(view->mainFrame().frameView().documentView.string(),
              NSString(u"http://a.test/ 612x612 hidden"));
}

} // namespace

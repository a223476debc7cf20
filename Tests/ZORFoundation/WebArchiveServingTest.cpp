// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"
#include "Tests/Support/WebKit/FakeWebView.h"
#include "ZORFoundation/Source/WebDataSource+ZORWebArchive.h"
#include "ZORFoundation/Source/ZOREmptyURLCache.h"
#include "ZORFoundation/Source/ZORWebArchiveURLProtocol.h"
#include "ZORFoundation/Source/ZORWebArchiveWebResourceLoadDelegate.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

using Delegate = ZORWebArchiveWebResourceLoadDelegate;

NSString s(const char16_t* text) { return text; }
NSURL url(const char16_t* text) { return NSURL::URLWithString(text); }

WebResource resource(const char16_t* address, const char* bytes) {
    return WebResource(NSData(std::string(bytes)), url(address), u"text/plain", u"UTF-8", nullptr);
}

std::string found(const Delegate& delegate, const char16_t* address) {
    return std::string(delegate.archivedResourceForURL(url(address)).data().bytes());
}

TEST(ArchiveTable, HasTheLastOfTheResourcesWithOneURL) {
    Delegate delegate;
    delegate.setWebArchive(
        WebArchive(resource(u"http://a/1", "main"),
                   {resource(u"http://a/1", "subresource"), resource(u"http://a/2", "first"),
                    resource(u"http://a/2", "second"), resource(u"http://a/3", "top")},
                   {WebArchive(resource(u"http://a/3", "frame"), {},
                               {WebArchive(resource(u"http://a/4", "inner"), {}, {})}),
                    WebArchive(resource(u"http://a/4", "later frame"), {}, {})}));
    EXPECT_EQ(found(delegate, u"http://a/1"), "subresource");
    EXPECT_EQ(found(delegate, u"http://a/2"), "second");
    EXPECT_EQ(found(delegate, u"http://a/3"), "frame");
    EXPECT_EQ(found(delegate, u"http://a/4"), "later frame");
}

TEST(ArchiveTable, IsRebuiltForAnotherArchive) {
    Delegate delegate;
    delegate.setWebArchive(WebArchive(resource(u"http://a/1", "1"), {}, {}));
    delegate.setWebArchive(WebArchive(resource(u"http://a/2", "2"), {}, {}));
    EXPECT_EQ(found(delegate, u"http://a/1"), "");
    delegate.setWebArchive(nullptr);
    EXPECT_EQ(found(delegate, u"http://a/2"), "");
}

TEST(ArchiveTable, LeavesOutResourcesWithoutAURL) {
    Delegate delegate;
    delegate.addResource(WebResource(NSData(std::string("x")), NSURL(), u"a/b", nullptr, nullptr));
    delegate.addResource(nullptr);
    EXPECT_FALSE(delegate.archivedResourceForURL(NSURL()));
    EXPECT_EQ(found(delegate, u"http://a/"), "");
}

TEST(ArchiveTable, FindsTheWholeURLOrTheFileNameOfItsPath) {
    Delegate delegate;
    delegate.addResource(resource(u"http://one/x/pic.png", "plain"));
    delegate.addResource(resource(u"http://one/x/page?q=1#f", "query"));
    EXPECT_EQ(found(delegate, u"http://one/x/page?q=1#f"), "query");
    EXPECT_EQ(found(delegate, u"https://two/y/z/pic.png"), "plain");
    EXPECT_EQ(found(delegate, u"https://two/y/pic.png?size=2#top"), "plain");
    EXPECT_EQ(found(delegate, u"ftp:/pic.png"), "plain");
    EXPECT_EQ(found(delegate, u"http://one/x/page"), "");
    EXPECT_EQ(found(delegate, u"http://one/x/PIC.png"), "");
    EXPECT_EQ(found(delegate, u"http://one/x/ic.png"), "");
    EXPECT_EQ(found(delegate, u"mailto:pic.png"), "");
}

TEST(ArchiveTable, AnswersAnEmptyPathWithTheFirstKeyThatEndsInASlash) {
    Delegate delegate;
    delegate.addResource(resource(u"http://one/x", "file"));
    delegate.addResource(resource(u"http://one/folder/", "folder"));
    EXPECT_EQ(found(delegate, u"http://two"), "folder");
}

TEST(ArchiveRequest, CarriesTheResourceAndNoCookies) {
    Delegate delegate;
    delegate.setWorkaroundEnabled(true);
    delegate.addResource(resource(u"http://a/x", "bytes"));
    delegate.addResource(
        WebResource(NSData(std::string("y")), url(u"http://a/y"), u"image/png", nullptr, nullptr));
    const NSURLRequest request(delegate.archiveRequestForURL(url(u"http://b/x")));
    EXPECT_EQ(request.URL(), url(u"http://b/x"));
    EXPECT_FALSE(request.HTTPShouldHandleCookies());
    const NSDictionary record = zorArchivedResource(request);
    EXPECT_EQ(record.count(), 4u);
    EXPECT_EQ(record.get<NSURL>(s(u"url")), url(u"http://a/x"));
    EXPECT_EQ(record.get<NSString>(s(u"mimeType")), s(u"text/plain"));
    EXPECT_EQ(record.get<NSData>(s(u"data")).bytes(), "bytes");
    EXPECT_EQ(record.get<NSString>(s(u"textEncodingName")), s(u"UTF-8"));
    EXPECT_EQ(zorArchivedResource(NSURLRequest(delegate.archiveRequestForURL(url(u"http://a/y")))).count(),
              3u);
}

TEST(ArchiveRequest, ForAnythingElseHasTheCachePolicyOnly) {
    Delegate delegate;
    delegate.setWorkaroundEnabled(true);
    NSURLRequest online(delegate.archiveRequestForURL(url(u"http://a/x")));
    EXPECT_EQ(online.cachePolicy(), NSURLRequestReloadIgnoringLocalCacheData);
    EXPECT_TRUE(online.HTTPShouldHandleCookies());
    EXPECT_FALSE(zorArchivedResource(online));
    delegate.setOffline(true);
    EXPECT_EQ(delegate.archiveRequestForURL(url(u"http://a/x")).cachePolicy(),
              NSURLRequestReturnCacheDataDontLoad);
}

TEST(ArchiveRequest, WithTheAttachingOffCarriesNothing) {
    Delegate delegate;
    delegate.setOffline(true);
    delegate.addResource(resource(u"http://a/x", "x"));
    const NSURLRequest request(delegate.archiveRequestForURL(url(u"http://a/x")));
    EXPECT_FALSE(zorArchivedResource(request));
    EXPECT_TRUE(request.HTTPShouldHandleCookies());
    EXPECT_EQ(request.cachePolicy(), NSURLRequestReturnCacheDataDontLoad);
}

TEST(ArchiveRequest, ReplacesTheOutgoingOneAndWhatItCarried) {
    FakeWebView view({});
    Delegate delegate;
    NSMutableURLRequest outgoing(url(u"http://a/x"));
    NSURLProtocol::setProperty(s(u"v"), u"k", outgoing);
    const NSURLResponse redirect;
    const NSURLRequest sent = delegate.webViewResourceWillSendRequest(view, outgoing, &redirect, nullptr);
    EXPECT_EQ(sent.URL(), url(u"http://a/x"));
    EXPECT_FALSE(NSURLProtocol::propertyForKey(u"k", sent));
}

TEST(ArchiveDelegate, WritesDebugLinesAndCancelsChallenges) {
    struct Sender : NSURLAuthenticationChallengeSender {
        void cancelAuthenticationChallenge(const NSURLAuthenticationChallenge&) override { ++cancelled; }
        int cancelled = 0;
    } sender;
    FakeWebView view({});
    Delegate delegate;
    delegate.setWorkaroundEnabled(true);
    for (const char* isOn : {"YES", "NO"}) {
        setenv("NSDebugEnabled", isOn, 1);
        testing::internal::CaptureStderr();
        delegate.archiveRequestForURL(url(u"http://a/x"));
        delegate.webViewResourceDidFailLoadingWithError(view, NSError(NSURLErrorDomain, -1), nullptr);
        delegate.webViewResourceDidFinishLoading(view, nullptr);
        const std::string log = testing::internal::GetCapturedStderr();
        EXPECT_EQ(log.find("no archived resource for: http://a/x") != std::string::npos, isOn[0] == 'Y')
            << log;
        EXPECT_EQ(log.find("failed to load: Error Domain=NSURLErrorDomain Code=-1") != std::string::npos,
                  isOn[0] == 'Y');
    }
    unsetenv("NSDebugEnabled");
    delegate.webViewResourceDidReceiveAuthenticationChallenge(view, {sender}, nullptr);
    EXPECT_EQ(sender.cancelled, 1);
}

struct Client : NSURLProtocolClient {
    void didReceiveResponse(NSURLProtocol&, const NSURLResponse& given,
                            NSURLCacheStoragePolicy policy) override {
        log += "response ";
        response = given;
        storage = policy;
    }
    void didLoadData(NSURLProtocol&, const NSData& data) override {
        log += "data ";
        bytes = std::string(data.bytes());
    }
    void didFinishLoading(NSURLProtocol&) override { log += "end"; }
    void didFailWithError(NSURLProtocol&, const NSError&) override { log += "failure"; }

    std::string log, bytes;
    NSURLResponse response;
    NSURLCacheStoragePolicy storage = NSURLCacheStorageAllowed;
};

TEST(ArchiveProtocol, TakesRequestsWithAResourceAndTwoSchemesExactly) {
    const auto can = [](const char16_t* text) {
        return ZORWebArchiveURLProtocol::canInitWithRequest(NSURLRequest(url(text)));
    };
    EXPECT_TRUE(can(u"x-msg://1/a"));
    EXPECT_TRUE(can(u"safari-resource:/a"));
    EXPECT_FALSE(can(u"X-MSG://1/a"));
    EXPECT_FALSE(can(u"x-msgs://1/a"));
    EXPECT_FALSE(can(u"http://x-msg/"));
    EXPECT_FALSE(ZORWebArchiveURLProtocol::canInitWithRequest(nullptr));
    NSMutableURLRequest request(url(u"http://a/"));
    zorSetArchivedResource(request, NSDictionary::dictionary());
    EXPECT_TRUE(ZORWebArchiveURLProtocol::canInitWithRequest(request));
    EXPECT_EQ(ZORWebArchiveURLProtocol::canonicalRequestForRequest(request).URL(), request.URL());
}

TEST(ArchiveProtocol, AnswersFromTheRequestAtOnceAndForNoCache) {
    NSMutableURLRequest request(url(u"http://b/x"));
    zorSetArchivedResource(request, NSDictionary{{s(u"url"), url(u"http://a/x")},
                                                 {s(u"mimeType"), s(u"text/css")},
                                                 {s(u"data"), NSData(std::string("12345"))},
                                                 {s(u"textEncodingName"), s(u"latin1")}});
    Client client;
    ZORWebArchiveURLProtocol protocol(request, &client);
    protocol.startLoading();
    EXPECT_EQ(client.log, "response data end");
    EXPECT_EQ(client.response.URL, url(u"http://a/x"));
    EXPECT_EQ(client.response.MIMEType, s(u"text/css"));
    EXPECT_EQ(client.response.textEncodingName, s(u"latin1"));
    EXPECT_EQ(client.response.expectedContentLength, 5);
    EXPECT_EQ(client.storage, NSURLCacheStorageNotAllowed);
    EXPECT_EQ(client.bytes, "12345");
}

TEST(ArchiveProtocol, AnswersTheTwoSchemesEmptyWithoutAResource) {
    Client client;
    ZORWebArchiveURLProtocol protocol(NSURLRequest(url(u"x-msg://1/a")), &client);
    protocol.startLoading();
    EXPECT_EQ(client.log, "response data end");
    EXPECT_FALSE(client.response.URL);
    EXPECT_FALSE(client.response.MIMEType);
    EXPECT_EQ(client.response.expectedContentLength, 0);
    EXPECT_EQ(client.bytes, "");
}

TEST(ArchiveProtocol, WithoutAClientDoesNothing) {
    ZORWebArchiveURLProtocol protocol(NSURLRequest(url(u"x-msg://1/a")), nullptr);
    protocol.startLoading();
    protocol.zorSendData(nullptr);
    protocol.stopLoading();
}

TEST(EmptyCache, HasNothingWhateverWasStored) {
    ZOREmptyURLCache cache(1024, 1024, u"/tmp/x");
    const NSURLRequest request(url(u"http://a/"));
    cache.storeCachedResponse({{}, NSData(std::string("x"))}, request);
    EXPECT_FALSE(cache.cachedResponseForRequest(request));
}

std::shared_ptr<FakePage> page(const char16_t* address) {
    auto made = std::make_shared<FakePage>();
    made->mainResource = resource(address, "main");
    return made;
}

TEST(FrameArchive, HasTheFramesResourcesAndThoseOfItsChildren) {
    auto main = page(u"http://a/"), child = page(u"http://b/");
    main->subresources = {resource(u"http://a/1", "1")};
    auto gone = page(u"http://c/");
    gone->hasDataSource = false;
    main->children = {gone, child};
    const WebArchive archive = zorWebArchive(fakeFrame(main).dataSource());
    EXPECT_EQ(archive.mainResource().URL(), url(u"http://a/"));
    ASSERT_EQ(archive.subresources().size(), 1u);
    ASSERT_EQ(archive.subframeArchives().size(), 1u);
    EXPECT_EQ(archive.subframeArchives()[0].mainResource().URL(), url(u"http://b/"));
    EXPECT_EQ(WebArchive::initWithData(archive.data()).data().bytes(), archive.data().bytes());
}

TEST(FrameArchive, LosesOnlyTheSubresourcesWhenTheEngineRaises) {
    auto main = page(u"http://a/");
    main->subresources = {resource(u"http://a/1", "1")};
    main->onSubresources = [] { NSException(NSRangeException, u"out of bounds").raise(); };
    testing::internal::CaptureStderr();
    const WebArchive archive = zorArchiveFrame(fakeFrame(main));
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("Larkspur encountered an internal Web Kit error 'out of bounds' while getting the "
                       "subresources for <WebDataSource>"),
              std::string::npos)
        << log;
    ASSERT_TRUE(archive);
    EXPECT_TRUE(archive.subresources().empty());
}

TEST(FrameArchive, OfNilIsNil) { EXPECT_FALSE(zorArchiveFrame(nullptr) || zorWebArchive(nullptr)); }

} // namespace

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNotificationCenter.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/NSURLCache.h"
#include "Platform/Foundation/NSURLProtocol.h"

#include <chrono>
#include <gtest/gtest.h>

namespace {

NSURL url(const char16_t* text) { return NSURL::URLWithString(text); }

TEST(URLRequest, HasThePlatformsDefaults) {
    const NSURLRequest request(url(u"http://a/"));
    EXPECT_EQ(request.URL(), url(u"http://a/"));
    EXPECT_EQ(request.cachePolicy(), NSURLRequestUseProtocolCachePolicy);
    EXPECT_TRUE(request.HTTPShouldHandleCookies());
    EXPECT_FALSE(NSURLRequest().URL());
    EXPECT_EQ(request.description().utf8(), "<NSURLRequest> { URL: http://a/ }");
}

TEST(URLRequest, IsAValueThatLaterChangesDoNotReach) {
    NSMutableURLRequest draft(url(u"http://a/"));
    NSURLProtocol::setProperty(NSString(u"1"), u"key", draft);
    const NSURLRequest request(draft);
    NSURLProtocol::setProperty(NSString(u"2"), u"key", draft);
    draft.setCachePolicy(NSURLRequestReturnCacheDataDontLoad);
    draft.setHTTPShouldHandleCookies(false);
    EXPECT_EQ(NSURLProtocol::propertyForKey(u"key", request), NSString(u"1"));
    EXPECT_FALSE(NSURLProtocol::propertyForKey(u"other", request));
    EXPECT_EQ(request.cachePolicy(), NSURLRequestUseProtocolCachePolicy);
    EXPECT_FALSE(NSURLRequest(draft).HTTPShouldHandleCookies());
}

bool yes(const NSURLRequest&) { return true; }
bool no(const NSURLRequest&) { return false; }
NSURLRequest same(const NSURLRequest& request) { return request; }
std::unique_ptr<NSURLProtocol> none(const NSURLRequest&, NSURLProtocolClient*) { return nullptr; }

TEST(URLProtocol, IsTheClassRegisteredLastThatTakesTheRequest) {
    static constexpr NSURLProtocol::Class first{yes, same, none}, second{yes, same, none},
        third{no, same, none};
    const NSURLRequest request(url(u"http://a/"));
    EXPECT_EQ(NSURLProtocol::classForRequest(request), nullptr);
    for (const auto* handler : {&first, &second, &third}) EXPECT_TRUE(NSURLProtocol::registerClass(*handler));
    EXPECT_EQ(NSURLProtocol::classForRequest(request), &second);
    NSURLProtocol::unregisterClass(second);
    EXPECT_EQ(NSURLProtocol::classForRequest(request), &first);
    NSURLProtocol::unregisterClass(first);
    NSURLProtocol::unregisterClass(third);
}

TEST(URLProtocol, IsRefusedWhenItLacksAFunctionOrThereAreTooMany) {
    static constexpr NSURLProtocol::Class incomplete{yes, same, nullptr}, whole{no, same, none};
    EXPECT_FALSE(NSURLProtocol::registerClass(incomplete));
    int accepted = 0;
    while (accepted < 1000 && NSURLProtocol::registerClass(whole)) ++accepted;
    EXPECT_EQ(accepted, 64);
    NSURLProtocol::unregisterClass(whole);
}

TEST(URLCache, StoresWhatFitsInMemory) {
    NSURLCache cache(10, 0, nullptr);
    const NSURLRequest a(url(u"http://a/")), b(url(u"http://b/"));
    cache.storeCachedResponse({{}, NSData(std::string("12345678"))}, a);
    cache.storeCachedResponse({{}, NSData(std::string("123"))}, b);
    ASSERT_TRUE(cache.cachedResponseForRequest(a));
    EXPECT_EQ(cache.cachedResponseForRequest(a)->data.bytes(), "12345678");
    EXPECT_FALSE(cache.cachedResponseForRequest(b));
    cache.storeCachedResponse({{}, NSData(std::string("1"))}, a);
    cache.storeCachedResponse({{}, NSData(std::string("123"))}, b);
    EXPECT_TRUE(cache.cachedResponseForRequest(b));
    cache.setMemoryCapacity(3);
    EXPECT_FALSE(cache.cachedResponseForRequest(b));
    cache.storeCachedResponse({{}, NSData(std::string("123"))}, b);
    cache.removeAllCachedResponses();
    EXPECT_FALSE(cache.cachedResponseForRequest(b));
}

TEST(URLCache, SharedOneIsReplacedButNeverMissing) {
    auto own = std::make_unique<NSURLCache>(1, 2, u"/tmp/x");
    const NSURLCache* address = own.get();
    NSURLCache::setSharedURLCache(std::move(own));
    EXPECT_EQ(&NSURLCache::sharedURLCache(), address);
    NSURLCache::setSharedURLCache(nullptr);
    EXPECT_EQ(&NSURLCache::sharedURLCache(), address);
}

TEST(RunLoop, WithoutEventsWaitsForTheDate) {
    const auto start = std::chrono::steady_clock::now();
    const double now = NSDate::now().timeIntervalSinceReferenceDate();
    NSRunLoop::currentRunLoop().runUntilDate(NSDate(now + 0.05));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(45));
    NSRunLoop::currentRunLoop().runUntilDate(NSDate(now - 1));
}

TEST(RunLoop, HandsTheDateToWhoeverHasEvents) {
    static double date = 0;
    NSRunLoop::Runner before = NSRunLoop::currentRunLoop().setRunner([](double given) { date = given; });
    NSRunLoop::currentRunLoop().runUntilDate(NSDate(12));
    NSRunLoop::currentRunLoop().setRunner(before);
    EXPECT_EQ(date, 12);
}

TEST(NotificationCenter, TellsThoseWhoListenToTheNameAndTheObject) {
    NSNotificationCenter center;
    int object = 0, other = 0, any = 0, one = 0;
    center.addObserver(
        &any, [&](const NSNotification&) { ++any; }, u"name", nullptr);
    center.addObserver(
        &one, [&](const NSNotification&) { center.removeObserver(&one), ++one; }, u"name", &object);
    for (const void* poster : {&object, &other, &object}) center.postNotification({u"name", poster});
    center.postNotification({u"another", &object});
    EXPECT_EQ(any, 3);
    EXPECT_EQ(one, 1);
}

} // namespace

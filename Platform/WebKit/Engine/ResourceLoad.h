// SPDX-License-Identifier: Apache-2.0
//
// The answer to one request of a page: the view's delegate says what is to be sent, and a handler of the
// process, a cache or the network answers it.
#pragma once

#include "Platform/Foundation/NSURLProtocol.h"
#include "Platform/WebKit/Engine/NetworkLoad.h"
#include "Platform/WebKit/WebView.h"

#include <string>
#include <webkit2/webkit2.h>

// What the loads of a view share. Outlives them.
struct LoadingPage {
    WebView& view;
    std::string url; // of the page
    GObjectPointer<SoupSession> session;
    std::vector<WebResource> resources; // what was answered from memory, in this order
};

class ResourceLoad final : private NSURLProtocolClient,
                           private NetworkLoad::Client,
                           private NSURLAuthenticationChallengeSender {
public:
    ResourceLoad(LoadingPage& page, WebKitURISchemeRequest* request);

    void start();
    // Answered, one way or the other. Not before then may a load go that the page still waits for.
    bool isDone() const { return isDone_; }

private:
    void send(const NSURL& url, const NSURLResponse* redirectResponse);
    void answer(const NSURLRequest& request);
    void answerFromCache(const NSURLRequest& request);
    bool redirect(SoupMessage* message);
    void finish(const NSURLResponse& response, const NSData& data);
    void finishWithStream(GInputStream* stream, int64_t length, const std::string& contentType,
                          const std::string& allowedOrigin);
    void finishWithError(const NSError& error);
    std::string allowedOrigin(SoupMessage* message) const;

    void didReceiveResponse(NSURLProtocol& protocol, const NSURLResponse& response,
                            NSURLCacheStoragePolicy policy) override;
    void didLoadData(NSURLProtocol& protocol, const NSData& data) override;
    void didFinishLoading(NSURLProtocol& protocol) override;
    void didFailWithError(NSURLProtocol& protocol, const NSError& error) override;

    void networkDidRespond(SoupMessage* message, GInputStream* body) override;
    void networkDidFail(const NSError& error) override;
    void networkWasChallenged() override;
    void cancelAuthenticationChallenge(const NSURLAuthenticationChallenge& challenge) override;

    LoadingPage& page_;
    GObjectPointer<WebKitURISchemeRequest> request_;
    bool isDone_ = false;
    std::string url_; // of the last request that was sent
    unsigned redirects_ = 0;
    bool wasChallenged_ = false;
    std::unique_ptr<NSURLProtocol> protocol_;
    NSURLResponse response_;
    std::string data_;
    std::unique_ptr<NetworkLoad> network_;
};

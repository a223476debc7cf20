// SPDX-License-Identifier: Apache-2.0
//
// Shows a page in an off-screen view and waits until it is loaded, a deadline has passed or, for requests
// that want no more, its title is known. The page can load itself but never navigate away: what it starts of
// its own accord, new windows and questions for passwords are refused.
//
// A base class: it starts no load itself. A subclass calls, in this order, `init`; sets `_timeoutDate`;
// `startLoading`; configures the view; sets `_justTitle`; starts the load of the main frame; `waitUntilDone`;
// and then reads what it wants of the view. One loader serves one load. Everything happens on the main
// thread.
#pragma once

#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSNotificationCenter.h"
#include "Platform/WebKit/WebView.h"

#include <memory>
#include <vector>

class Loader : protected WebFrameLoadDelegate,
               protected WebPolicyDelegate,
               protected WebResourceLoadDelegate {
public:
    Loader() = default;
    ~Loader() override;
    Loader(const Loader&) = delete;
    Loader& operator=(const Loader&) = delete;

    // False and an error when there is no view to be had.
    bool init(WebViewMaker makeView, NSError* error);

    // Holds the wait open until the first frame has started.
    void startLoading();

    // Runs the run loop until the load is over. Without a deadline that may be never.
    void waitUntilDone();

    // nil while there is none.
    NSString pageTitle() const;

    // Settings of the host.
    int64_t webToolTimeout() const; // seconds
    bool shouldEnablePlugIns() const;
    uint64_t maxTriesBeforeTimeout() const;
    virtual int64_t webToolExtraLoadingTime() const; // seconds, after the wait
    double margin() const;

    void webViewDidStartProvisionalLoadForFrame(WebView& view, const WebFrame& frame) override;
    void webViewDidFinishLoadForFrame(WebView& view, const WebFrame& frame) override;
    void webViewDidFailProvisionalLoadWithErrorForFrame(WebView& view, const NSError& error,
                                                        const WebFrame& frame) override;
    void webViewDidFailLoadWithErrorForFrame(WebView& view, const NSError& error,
                                             const WebFrame& frame) override;
    void webViewDecidePolicyForNavigationAction(WebView& view, const NSDictionary& actionInformation,
                                                const NSURLRequest& request, const WebFrame& frame,
                                                WebPolicyDecisionListener& listener) override;
    void webViewDecidePolicyForNewWindowAction(WebView& view, const NSDictionary& actionInformation,
                                               const NSURLRequest& request, const NSString& newFrameName,
                                               WebPolicyDecisionListener& listener) override;
    void webViewResourceDidReceiveAuthenticationChallenge(WebView& view,
                                                          const NSURLAuthenticationChallenge& challenge,
                                                          const WebDataSource& dataSource) override;

    // The last load error, or the refusal of a password.
    const NSError& error() const { return _error; }

protected:
    // Called by `init` before the view is made. This one empties the shared cache and takes its capacity.
    virtual void clearURLCache();

    // Called once in every pass of the wait, with a number from 0 to 1.
    virtual void postProgress(double) {}

    virtual void progressFinished(const NSNotification& notification);

    std::vector<NSObject> _objectsLoading; // the placeholder "rootPage", or frames; a frame may stand twice
    NSError _error;
    std::unique_ptr<WebView> _view;
    NSDate _timeoutDate;
    bool _justTitle = false;

private:
    void removeLoading(const NSObject& object);
};

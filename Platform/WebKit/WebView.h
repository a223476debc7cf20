// SPDX-License-Identifier: Apache-2.0
//
// A view that shows a web page. It stands in no window: nothing of it is ever on a screen.
#pragma once

#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSGeometry.h"
#include "Platform/WebKit/WebDelegates.h"
#include "Platform/WebKit/WebPreferences.h"

#include <memory>

// Posted by a view when everything that it was loading has come or failed.
inline constexpr const char16_t* WebViewProgressFinishedNotification = u"WebProgressFinishedNotification";

class WebView {
public:
    WebView() = default;
    WebView(const WebView&) = delete;
    WebView& operator=(const WebView&) = delete;
    virtual ~WebView() = default;

    // Starts the web engine, one to a process. null and Cocoa error 3587 when the engine, or what it needs of
    // the system, is missing. The names may be nil.
    static std::unique_ptr<WebView> initWithFrame(const NSRect& frame, const NSString& frameName,
                                                  const NSString& groupName, NSError* error);

    void setFrameLoadDelegate(WebFrameLoadDelegate* delegate) { frameLoadDelegate_ = delegate; }
    void setPolicyDelegate(WebPolicyDelegate* delegate) { policyDelegate_ = delegate; }
    void setResourceLoadDelegate(WebResourceLoadDelegate* delegate) { resourceLoadDelegate_ = delegate; }
    WebFrameLoadDelegate* frameLoadDelegate() const { return frameLoadDelegate_; }
    WebPolicyDelegate* policyDelegate() const { return policyDelegate_; }
    WebResourceLoadDelegate* resourceLoadDelegate() const { return resourceLoadDelegate_; }

    // The view's own; they count from the next load on.
    const WebPreferences& preferences() const { return preferences_; }

    // After this date the view no longer waits for a page that does not answer, and shows nothing of it.
    virtual void setTimeoutDate(const NSDate& date) { timeoutDate_ = date; }
    const NSDate& timeoutDate() const { return timeoutDate_; }

    virtual WebFrame mainFrame() = 0;
    // From 0 to 1.
    virtual double estimatedProgress() = 0;

private:
    WebFrameLoadDelegate* frameLoadDelegate_ = nullptr;
    WebPolicyDelegate* policyDelegate_ = nullptr;
    WebResourceLoadDelegate* resourceLoadDelegate_ = nullptr;
    WebPreferences preferences_ = WebPreferences::preferences();
    NSDate timeoutDate_;
};

// How views are made; tests have ways of their own.
using WebViewMaker = decltype(&WebView::initWithFrame);

// SPDX-License-Identifier: Apache-2.0
//
// What a view tells and asks while it loads. Delegates are called on the main thread while its run loop runs;
// whoever sets one keeps it alive for as long as the view.
#pragma once

#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSURLAuthenticationChallenge.h"
#include "Platform/Foundation/NSURLRequest.h"
#include "Platform/Foundation/NSURLResponse.h"
#include "Platform/WebKit/WebFrame.h"

class WebView;

// In the information about a navigation: its type, a number.
inline constexpr const char16_t* WebActionNavigationTypeKey = u"WebActionNavigationTypeKey";

enum WebNavigationType {
    WebNavigationTypeLinkClicked = 0,
    WebNavigationTypeFormSubmitted = 1,
    WebNavigationTypeBackForward = 2,
    WebNavigationTypeReload = 3,
    WebNavigationTypeFormResubmitted = 4,
    WebNavigationTypeOther = 5, // started by the program, or by the page without a user's doing
};

class WebFrameLoadDelegate {
public:
    virtual ~WebFrameLoadDelegate() = default;
    virtual void webViewDidStartProvisionalLoadForFrame(WebView& view, const WebFrame& frame) = 0;
    virtual void webViewDidFinishLoadForFrame(WebView& view, const WebFrame& frame) = 0;
    virtual void webViewDidFailProvisionalLoadWithErrorForFrame(WebView& view, const NSError& error,
                                                                const WebFrame& frame) = 0;
    virtual void webViewDidFailLoadWithErrorForFrame(WebView& view, const NSError& error,
                                                     const WebFrame& frame) = 0;
};

// Takes the answer to a question of policy: one of the two, once.
class WebPolicyDecisionListener {
public:
    virtual ~WebPolicyDecisionListener() = default;
    virtual void use() = 0;
    virtual void ignore() = 0;
};

class WebPolicyDelegate {
public:
    virtual ~WebPolicyDelegate() = default;
    virtual void webViewDecidePolicyForNavigationAction(WebView& view, const NSDictionary& actionInformation,
                                                        const NSURLRequest& request, const WebFrame& frame,
                                                        WebPolicyDecisionListener& listener) = 0;
    virtual void webViewDecidePolicyForNewWindowAction(WebView& view, const NSDictionary& actionInformation,
                                                       const NSURLRequest& request,
                                                       const NSString& newFrameName,
                                                       WebPolicyDecisionListener& listener) = 0;
    // The platform's own answer: the types that the view can show.
    virtual void webViewDecidePolicyForMIMEType(WebView& view, const NSString& type,
                                                const NSURLRequest& request, const WebFrame& frame,
                                                WebPolicyDecisionListener& listener);
};

// Every method has the platform's own answer for delegates that do not care.
class WebResourceLoadDelegate {
public:
    virtual ~WebResourceLoadDelegate() = default;
    // The request to send in place of `request`; nil cancels the load. The response is that of a redirect,
    // or null.
    virtual NSURLRequest webViewResourceWillSendRequest(WebView& view, const NSURLRequest& request,
                                                        const NSURLResponse* redirectResponse,
                                                        const WebDataSource& dataSource);
    virtual void webViewResourceDidFinishLoading(WebView& view, const WebDataSource& dataSource);
    virtual void webViewResourceDidFailLoadingWithError(WebView& view, const NSError& error,
                                                        const WebDataSource& dataSource);
    virtual void webViewResourceDidReceiveAuthenticationChallenge(
        WebView& view, const NSURLAuthenticationChallenge& challenge, const WebDataSource& dataSource);
};

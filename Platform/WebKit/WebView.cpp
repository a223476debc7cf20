// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/WebView.h"

#include "Platform/Foundation/Module.h"
#include "Platform/WebKit/DisplayServer.h"
#include "Platform/WebKit/RuntimeFolder.h"
#include "Platform/WebKit/SandboxProbe.h"
#include "Platform/WebKit/WebEngine.h"

namespace {

std::unique_ptr<WebView> viewOfEngine(const NSRect& frame, NSString* why) {
    // Started before the engine's libraries are loaded, which takes longer. Server and folder stay until
    // the process ends: the toolkit cannot do without them any more.
    static DisplayServer display;
    static RuntimeFolder folder;
    SandboxProbe sandbox;
    auto entry = reinterpret_cast<WebEngineEntry>(moduleEntry("WebKit", why));
    if (!entry) return nullptr;
    WebEngineSurroundings where;
    where.display = display.name(why);
    if (where.display.empty()) return nullptr;
    where.runtimeFolder = folder.path();
    where.hasSandbox = sandbox.succeeded() && !where.runtimeFolder.empty();
    return std::unique_ptr<WebView>(entry(frame, where, why));
}

} // namespace

std::unique_ptr<WebView> WebView::initWithFrame(const NSRect& frame, const NSString&, const NSString&,
                                                NSError* error) {
    NSString why;
    std::unique_ptr<WebView> view = viewOfEngine(frame, &why);
    if (!view) {
        fail(error, moduleError(why));
    }
    return view;
}

void WebPolicyDelegate::webViewDecidePolicyForMIMEType(WebView&, const NSString&, const NSURLRequest&,
                                                       const WebFrame&, WebPolicyDecisionListener& listener) {
    listener.use();
}

NSURLRequest WebResourceLoadDelegate::webViewResourceWillSendRequest(WebView&, const NSURLRequest& request,
                                                                     const NSURLResponse*,
                                                                     const WebDataSource&) {
    return request;
}

void WebResourceLoadDelegate::webViewResourceDidFinishLoading(WebView&, const WebDataSource&) {}
void WebResourceLoadDelegate::webViewResourceDidFailLoadingWithError(WebView&, const NSError&,
                                                                     const WebDataSource&) {}
void WebResourceLoadDelegate::webViewResourceDidReceiveAuthenticationChallenge(
    WebView&, const NSURLAuthenticationChallenge& challenge, const WebDataSource&) {
    challenge.sender.cancelAuthenticationChallenge(challenge);
}

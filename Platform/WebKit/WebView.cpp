// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/WebView.h"

#include "Platform/Foundation/Module.h"
#include "Platform/WebKit/Caretaker.h"
#include "Platform/WebKit/DisplayServer.h"
#include "Platform/WebKit/SandboxProbe.h"
#include "Platform/WebKit/WebEngine.h"

namespace {

// Seconds. An engine that has not started by then waits for something that does not come.
constexpr double kPatience = 20;

std::unique_ptr<WebView> viewOfEngine(const NSRect& frame, NSString* why) {
    // Started before the engine's libraries are loaded, which takes longer. The server stays until the
    // process ends: the toolkit cannot do without it any more.
    static Caretaker caretaker;
    static DisplayServer display;
    caretaker.endOthersAt(NSDate(NSDate::now().timeIntervalSinceReferenceDate() + kPatience));
    SandboxProbe sandbox;
    auto entry = reinterpret_cast<WebEngineEntry>(moduleEntry("WebKit", why));
    if (!entry) return nullptr;
    WebEngineSurroundings where;
    where.display = display.name(why);
    if (where.display.empty()) return nullptr;
    caretaker.mindDisplay(atoi(where.display.c_str() + 1));
    where.caretaker = &caretaker;
    where.runtimeFolder = caretaker.folder();
    where.hasSandbox = sandbox.succeeded() && !where.runtimeFolder.empty();
    std::unique_ptr<WebView> view(entry(frame, where, why));
    caretaker.endOthersAt(NSDate());
    return view;
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

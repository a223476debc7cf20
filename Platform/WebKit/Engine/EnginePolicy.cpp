// SPDX-License-Identifier: Apache-2.0
//
// The view's questions to its policy delegate.
#include "Platform/Foundation/NSNumber.h"
#include "Platform/WebKit/Engine/EngineFrame.h"
#include "Platform/WebKit/Engine/EngineView.h"
#include "Platform/WebKit/Engine/PrivateSchemes.h"

namespace {

class Listener final : public WebPolicyDecisionListener {
public:
    void use() override { isUsed = true; }
    void ignore() override { isUsed = false; }

    bool isUsed = false;
};

NSURLRequest requestOf(WebKitURIRequest* request) {
    const std::string url = PrivateSchemes::publicURL(webkit_uri_request_get_uri(request));
    return NSURLRequest(NSURL::URLWithString(NSString::fromUTF8(url)));
}

void answer(WebKitPolicyDecision* decision, bool isUsed) {
    if (isUsed) {
        webkit_policy_decision_use(decision);
    } else {
        webkit_policy_decision_ignore(decision);
    }
}

} // namespace

bool EngineView::decidePolicy(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type) {
    if (type == WEBKIT_POLICY_DECISION_TYPE_RESPONSE) {
        decideResponse(WEBKIT_RESPONSE_POLICY_DECISION(decision));
    } else {
        decideNavigation(WEBKIT_NAVIGATION_POLICY_DECISION(decision),
                         type == WEBKIT_POLICY_DECISION_TYPE_NEW_WINDOW_ACTION);
    }
    return true;
}

void EngineView::decideNavigation(WebKitNavigationPolicyDecision* decision, bool isNewWindow) {
    WebKitNavigationAction* action = webkit_navigation_policy_decision_get_navigation_action(decision);
    const NSURLRequest request = requestOf(webkit_navigation_action_get_request(action));
    // The engine counts the types as the platform does.
    const NSDictionary information{{NSString(WebActionNavigationTypeKey),
                                    NSNumber::withInt(webkit_navigation_action_get_navigation_type(action))}};
    Listener listener;
    if (WebPolicyDelegate* delegate = policyDelegate(); !delegate) {
        listener.isUsed = !isNewWindow;
    } else if (isNewWindow) {
        delegate->webViewDecidePolicyForNewWindowAction(*this, information, request, nullptr, listener);
    } else {
        delegate->webViewDecidePolicyForNavigationAction(*this, information, request, mainFrame_, listener);
    }
    const std::string url = request.URL().absoluteString().utf8();
    if (listener.isUsed && !PrivateSchemes::isInternal(url)) frameURLs_.push_back(url);
    answer(WEBKIT_POLICY_DECISION(decision), listener.isUsed);
}

// A type that cannot be shown is not used whatever the delegate says: the engine would take it for text.
void EngineView::decideResponse(WebKitResponsePolicyDecision* decision) {
    const char* type =
        webkit_uri_response_get_mime_type(webkit_response_policy_decision_get_response(decision));
    const NSString name = NSString::fromUTF8(type ? type : "");
    answer(WEBKIT_POLICY_DECISION(decision), isUsed(name) && canShow(name));
}

bool EngineView::isUsed(const NSString& type) {
    Listener listener;
    listener.isUsed = true;
    if (WebPolicyDelegate* delegate = policyDelegate()) {
        delegate->webViewDecidePolicyForMIMEType(*this, type, NSURLRequest(mainResource_.URL()), mainFrame_,
                                                 listener);
    }
    return listener.isUsed;
}

bool EngineView::canShow(const NSString& type) {
    return webkit_web_view_can_show_mime_type(view_, type.utf8().c_str());
}

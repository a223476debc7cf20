// SPDX-License-Identifier: Apache-2.0
//
// The view of the engine: a widget in a window that is never shown.
#pragma once

#include "Platform/WebKit/Engine/PageSnapshot.h"
#include "Platform/WebKit/Engine/ResourceLoad.h"
#include "Platform/WebKit/WebEngine.h"

#include <gtk/gtk.h>
#include <list>
#include <map>
#include <memory>

class EngineView final : public WebView {
public:
    EngineView(const NSRect& frame, const WebEngineSurroundings& where, const std::string& extensionFolder);
    ~EngineView() override;

    WebFrame mainFrame() override { return mainFrame_; }
    double estimatedProgress() override;
    void setTimeoutDate(const NSDate& date) override;

    // What the frames and their sources ask.
    void loadArchive(const WebArchive& archive);
    // The page as it stands now; the same until the run loop runs again. Never null.
    std::shared_ptr<const PageSnapshot> snapshot();
    // The main frame's, nil without one.
    NSString title() const;
    WebResource mainResource() const { return mainResource_; }
    const std::vector<WebResource>& resources() const { return page_.resources; }

private:
    void connectSignals();
    void connectSchemes();
    void showMainResource();
    void failUnshowable();
    bool isUsed(const NSString& type);
    bool canShow(const NSString& type);
    std::string askPage();

    void loadChanged(WebKitLoadEvent event);
    void loadFailed(WebKitLoadEvent event, const GError& error);
    bool decidePolicy(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type);
    void decideNavigation(WebKitNavigationPolicyDecision* decision, bool isNewWindow);
    void decideResponse(WebKitResponsePolicyDecision* decision);
    void resourceStarted(WebKitWebResource* resource);
    void resourceEnded(WebKitWebResource* resource);
    void processGone();
    void requestCame(WebKitURISchemeRequest* request);

    Caretaker* const caretaker_;
    WebFrame mainFrame_;
    GObjectPointer<WebKitSettings> settings_;
    GObjectPointer<WebKitWebContext> context_;
    GtkWidget* window_;
    WebKitWebView* view_; // the window's
    LoadingPage page_;
    std::list<ResourceLoad> loads_;
    WebResource mainResource_;

    bool isShown_ = false; // the main resource was given to the engine
    bool hasProcess_ = true;
    bool mainHasFailed_ = false;
    std::map<WebKitWebResource*, WebFrame> framesLoading_; // below the main one
    std::vector<std::string> frameURLs_; // to which a frame below the main one is about to go

    std::shared_ptr<const PageSnapshot> snapshot_;
    unsigned long snapshotRound_ = 0;
};

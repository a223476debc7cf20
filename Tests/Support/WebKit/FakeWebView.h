// SPDX-License-Identifier: Apache-2.0
//
// A view without an engine: tests say what its frames show and call its delegates themselves.
#pragma once

#include "Platform/WebKit/WebView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

// What a frame shows. Shared with its handles, so that tests may change it while the page loads.
struct FakePage {
    WebDocumentView documentView = WebDocumentView::withText(u"");
    DOMNode document;
    NSString title;
    WebResource mainResource;
    std::vector<WebResource> subresources;
    std::function<void()> onSubresources; // may raise
    bool hasDataSource = true;
    std::vector<std::shared_ptr<FakePage>> children;

    std::vector<std::string>* log = nullptr; // takes what is asked of the frame
    std::function<void(const WebArchive&)> onLoad;
};

WebFrame fakeFrame(const std::shared_ptr<FakePage>& page);

class FakeWebView final : public WebView {
public:
    explicit FakeWebView(const NSRect& frame) : frame(frame) {}

    WebFrame mainFrame() override { return main; }
    double estimatedProgress() override { return progress; }

    const NSRect frame;
    double progress = 0;
    std::shared_ptr<FakePage> page = std::make_shared<FakePage>();
    WebFrame main = fakeFrame(page);

    // The view that was made last; for makers of views, which have no place for a receiver.
    static FakeWebView* last;
    static std::unique_ptr<WebView> make(const NSRect& frame, const NSString& frameName,
                                         const NSString& groupName, NSError* error);
};

// Takes the place of the run loop: every run of it is written down, and calls what the test wants to happen.
class FakeRunLoop {
public:
    FakeRunLoop();
    ~FakeRunLoop();

    std::vector<double> runs;                  // how many seconds each was to last
    std::vector<std::function<void()>> events; // of the runs to come, one each
};

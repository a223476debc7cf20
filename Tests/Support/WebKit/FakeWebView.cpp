// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/WebKit/FakeWebView.h"

#include "Platform/Foundation/NSRunLoop.h"

namespace {

using Page = std::shared_ptr<FakePage>;

class FakeDataSource final : public WebDataSource::Body {
public:
    explicit FakeDataSource(const Page& page) : page_(page) {}

    NSString pageTitle() const override { return page_->title; }
    WebResource mainResource() const override { return page_->mainResource; }
    std::vector<WebResource> subresources() const override {
        if (page_->onSubresources) page_->onSubresources();
        return page_->subresources;
    }
    WebFrame webFrame() const override { return fakeFrame(page_); }

private:
    Page page_;
};

class FakeFrame final : public WebFrame::Body {
public:
    explicit FakeFrame(const Page& page) : page_(page) {}

    void loadArchive(const WebArchive& archive) const override {
        if (page_->onLoad) page_->onLoad(archive);
    }
    WebFrameView frameView() const override {
        note("documentView");
        return {page_->documentView};
    }
    WebDataSource dataSource() const override {
        return page_->hasDataSource ? WebDataSource(new FakeDataSource(page_)) : WebDataSource();
    }
    DOMNode DOMDocument() const override {
        note("DOMDocument");
        return page_->document;
    }
    std::vector<WebFrame> childFrames() const override {
        std::vector<WebFrame> frames;
        for (const Page& child : page_->children) frames.push_back(fakeFrame(child));
        return frames;
    }

private:
    void note(const char* question) const {
        if (page_->log) page_->log->push_back(question);
    }

    Page page_;
};

FakeRunLoop* current = nullptr;

void run(double end) {
    current->runs.push_back(end - NSDate::now().timeIntervalSinceReferenceDate());
    if (current->events.empty()) return;
    auto event = current->events.front();
    current->events.erase(current->events.begin());
    event();
}

} // namespace

FakeWebView* FakeWebView::last = nullptr;

WebFrame fakeFrame(const std::shared_ptr<FakePage>& page) { return WebFrame(new FakeFrame(page)); }

std::unique_ptr<WebView> FakeWebView::make(const NSRect& frame, const NSString&, const NSString&, NSError*) {
    auto view = std::make_unique<FakeWebView>(frame);
    last = view.get();
    return view;
}

FakeRunLoop::FakeRunLoop() {
    current = this;
    NSRunLoop::currentRunLoop().setRunner(run);
}

FakeRunLoop::~FakeRunLoop() {
    NSRunLoop::currentRunLoop().setRunner(nullptr);
    current = nullptr;
}

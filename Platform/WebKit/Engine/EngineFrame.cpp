// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/EngineFrame.h"

#include "Platform/WebKit/Engine/EngineView.h"
#include "Platform/WebKit/Engine/PrivateSchemes.h"

#include <algorithm>
#include <set>

namespace {

using Snapshot = std::shared_ptr<const PageSnapshot>;

std::vector<WebFrame> childrenOf(EngineView& view, const Snapshot& page, const PageSnapshot::Frame& frame);

WebFrameView viewOf(const PageSnapshot::Frame& frame) {
    if (!frame.isKnown) return {};
    return {frame.hasDocument ? WebDocumentView::withText(frame.text) : WebDocumentView::withoutText()};
}

void addAddresses(const PageSnapshot::Frame& frame, std::set<std::string>& addresses) {
    for (const PageSnapshot::Frame& child : frame.children) {
        addresses.insert(PrivateSchemes::publicURL(child.url.utf8()));
        addAddresses(child, addresses);
    }
}

// What was answered from memory but for the documents of frames, which are their main resources.
std::vector<WebResource> subresourcesOf(EngineView& view) {
    std::set<std::string> frames;
    addAddresses(view.snapshot()->main, frames);
    std::vector<WebResource> resources;
    for (const WebResource& resource : view.resources()) {
        if (!frames.contains(resource.URL().absoluteString().utf8())) resources.push_back(resource);
    }
    return resources;
}

class MainDataSource final : public WebDataSource::Body {
public:
    explicit MainDataSource(EngineView& view) : view_(view) {}

    NSString pageTitle() const override { return view_.title(); }
    WebResource mainResource() const override { return view_.mainResource(); }
    std::vector<WebResource> subresources() const override { return subresourcesOf(view_); }
    WebFrame webFrame() const override { return view_.mainFrame(); }

private:
    EngineView& view_;
};

class MainFrame final : public WebFrame::Body {
public:
    explicit MainFrame(EngineView& view) : view_(view) {}

    std::u16string description(unsigned) const override { return u"<WebFrame main>"; }
    void loadArchive(const WebArchive& archive) const override { view_.loadArchive(archive); }
    WebFrameView frameView() const override { return viewOf(view_.snapshot()->main); }
    WebDataSource dataSource() const override { return WebDataSource(new MainDataSource(view_)); }
    DOMNode DOMDocument() const override { return view_.snapshot()->main.document; }
    std::vector<WebFrame> childFrames() const override {
        const Snapshot page = view_.snapshot();
        return childrenOf(view_, page, page->main);
    }

private:
    EngineView& view_;
};

class ChildDataSource;

class ChildFrame final : public WebFrame::Body {
public:
    ChildFrame(EngineView& view, const Snapshot& page, const PageSnapshot::Frame& frame)
        : view_(view), page_(page), frame_(frame) {}

    void loadArchive(const WebArchive&) const override {} // nothing but a view's main frame loads archives
    WebFrameView frameView() const override { return viewOf(frame_); }
    WebDataSource dataSource() const override;
    DOMNode DOMDocument() const override { return frame_.document; }
    std::vector<WebFrame> childFrames() const override { return childrenOf(view_, page_, frame_); }

    NSString title() const { return frame_.title; }
    // The last one that was served under the document's URL; nil for documents that came another way.
    WebResource mainResource() const {
        const std::string url = PrivateSchemes::publicURL(frame_.url.utf8());
        const std::vector<WebResource>& all = view_.resources();
        auto found = std::find_if(all.rbegin(), all.rend(), [&](const WebResource& resource) {
            return resource.URL().absoluteString().utf8() == url;
        });
        return found == all.rend() ? WebResource() : *found;
    }

private:
    EngineView& view_;
    const Snapshot page_; // holds the frame
    const PageSnapshot::Frame& frame_;
};

class ChildDataSource final : public WebDataSource::Body {
public:
    explicit ChildDataSource(const ChildFrame& frame) : frame_(&frame), owner_(&frame) {}

    NSString pageTitle() const override { return frame_->title(); }
    WebResource mainResource() const override { return frame_->mainResource(); }
    // The engine does not tell for which frame a resource was fetched: all are the main frame's.
    std::vector<WebResource> subresources() const override { return {}; }
    WebFrame webFrame() const override { return owner_; }

private:
    const ChildFrame* frame_;
    const WebFrame owner_;
};

WebDataSource ChildFrame::dataSource() const { return WebDataSource(new ChildDataSource(*this)); }

std::vector<WebFrame> childrenOf(EngineView& view, const Snapshot& page, const PageSnapshot::Frame& frame) {
    std::vector<WebFrame> frames;
    for (const PageSnapshot::Frame& child : frame.children)
        frames.emplace_back(new ChildFrame(view, page, child));
    return frames;
}

class LoadingFrame final : public WebFrame::Body {
    void loadArchive(const WebArchive&) const override {}
    WebFrameView frameView() const override { return {}; }
    WebDataSource dataSource() const override { return nullptr; }
    DOMNode DOMDocument() const override { return nullptr; }
    std::vector<WebFrame> childFrames() const override { return {}; }
};

} // namespace

WebFrame makeMainFrame(EngineView& view) { return WebFrame(new MainFrame(view)); }

WebFrame makeLoadingFrame() { return WebFrame(new LoadingFrame); }

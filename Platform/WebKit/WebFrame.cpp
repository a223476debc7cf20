// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/WebFrame.h"

struct WebDocumentView::Body final : ObjectBody {
    explicit Body(const NSString& text) : ObjectBody(NSKind::other), text(text) {}

    std::string_view className() const override { return "WebDocumentView"; }
    std::u16string description(unsigned) const override { return u"<WebDocumentView>"; }

    const NSString text;
};

WebDocumentView WebDocumentView::withoutText() { return WebDocumentView(new Body(nullptr)); }
WebDocumentView WebDocumentView::withText(const NSString& text) { return WebDocumentView(new Body(text)); }

bool WebDocumentView::conformsToWebDocumentText() const { return bool(string()); }

NSString WebDocumentView::string() const { return body() ? static_cast<const Body*>(body())->text : nullptr; }

NSString WebDataSource::pageTitle() const { return body() ? source()->pageTitle() : nullptr; }
WebResource WebDataSource::mainResource() const { return body() ? source()->mainResource() : nullptr; }
std::vector<WebResource> WebDataSource::subresources() const {
    return body() ? source()->subresources() : std::vector<WebResource>();
}
WebFrame WebDataSource::webFrame() const { return body() ? source()->webFrame() : nullptr; }

void WebFrame::loadArchive(const WebArchive& archive) const {
    if (body()) frame()->loadArchive(archive);
}
WebFrameView WebFrame::frameView() const { return body() ? frame()->frameView() : WebFrameView(); }
WebDataSource WebFrame::dataSource() const { return body() ? frame()->dataSource() : nullptr; }
DOMNode WebFrame::DOMDocument() const { return body() ? frame()->DOMDocument() : nullptr; }
std::vector<WebFrame> WebFrame::childFrames() const {
    return body() ? frame()->childFrames() : std::vector<WebFrame>();
}

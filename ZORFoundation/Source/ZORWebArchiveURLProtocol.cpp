// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORWebArchiveURLProtocol.h"

namespace {

constexpr const char16_t* kArchivedResource = u"ZORArchivedResourceKey";

bool hasScheme(const NSURL& url, std::u16string_view scheme) {
    const NSString absolute = url.absoluteString();
    const std::u16string& text = absolute.text();
    return text.size() > scheme.size() && text.compare(0, scheme.size(), scheme) == 0 &&
           text[scheme.size()] == u':';
}

std::unique_ptr<NSURLProtocol> make(const NSURLRequest& request, NSURLProtocolClient* client) {
    return std::make_unique<ZORWebArchiveURLProtocol>(request, client);
}

} // namespace

NSDictionary zorArchivedResource(const NSURLRequest& request) {
    return as<NSDictionary>(NSURLProtocol::propertyForKey(NSString(kArchivedResource), request));
}

void zorSetArchivedResource(NSMutableURLRequest& request, const NSDictionary& resource) {
    NSURLProtocol::setProperty(resource, NSString(kArchivedResource), request);
}

const NSURLProtocol::Class& ZORWebArchiveURLProtocol::protocolClass() {
    static constexpr Class functions{canInitWithRequest, canonicalRequestForRequest, make};
    return functions;
}

bool ZORWebArchiveURLProtocol::canInitWithRequest(const NSURLRequest& request) {
    return hasScheme(request.URL(), u"x-msg") || hasScheme(request.URL(), u"safari-resource") ||
           zorArchivedResource(request);
}

void ZORWebArchiveURLProtocol::startLoading() { zorSendResponse(nullptr); }

void ZORWebArchiveURLProtocol::zorSendResponse(const NSObject&) {
    if (!client()) return;
    const NSDictionary resource = zorArchivedResource(request());
    const NSURLResponse response{resource.get<NSURL>(NSString(u"url")),
                                 resource.get<NSString>(NSString(u"mimeType")),
                                 int64_t(resource.get<NSData>(NSString(u"data")).length()),
                                 resource.get<NSString>(NSString(u"textEncodingName"))};
    client()->didReceiveResponse(*this, response, NSURLCacheStorageNotAllowed);
    zorSendData(nullptr);
}

void ZORWebArchiveURLProtocol::zorSendData(const NSObject&) {
    if (!client()) return;
    client()->didLoadData(*this, zorArchivedResource(request()).get<NSData>(NSString(u"data")));
    client()->didFinishLoading(*this);
}

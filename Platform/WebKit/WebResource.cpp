// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/WebResource.h"

namespace {

constexpr const char16_t* kData = u"WebResourceData";
constexpr const char16_t* kFrameName = u"WebResourceFrameName";
constexpr const char16_t* kMIMEType = u"WebResourceMIMEType";
constexpr const char16_t* kTextEncodingName = u"WebResourceTextEncodingName";
constexpr const char16_t* kURL = u"WebResourceURL";

} // namespace

struct WebResource::Body final : ObjectBody {
    Body(const NSData& data, const NSURL& url, const NSString& type, const NSString& encoding,
         const NSString& frame)
        : ObjectBody(NSKind::other), data(data), url(url), type(type), encoding(encoding), frame(frame) {}

    std::string_view className() const override { return "WebResource"; }
    std::u16string description(unsigned) const override { return u"<WebResource " + printed(url) + u">"; }

    const NSData data;
    const NSURL url;
    const NSString type, encoding, frame;
};

WebResource::WebResource(const NSData& data, const NSURL& url, const NSString& MIMEType,
                         const NSString& textEncodingName, const NSString& frameName)
    : NSObject(new Body(data, url, MIMEType, textEncodingName, frameName)) {}

const WebResource::Body* WebResource::fields() const { return static_cast<const Body*>(body()); }

NSURL WebResource::URL() const { return body() ? fields()->url : NSURL(); }
NSString WebResource::MIMEType() const { return body() ? fields()->type : nullptr; }
NSString WebResource::textEncodingName() const { return body() ? fields()->encoding : nullptr; }
NSData WebResource::data() const { return body() ? fields()->data : nullptr; }
NSString WebResource::frameName() const { return body() ? fields()->frame : nullptr; }

WebResource WebResource::withPropertyList(const NSObject& propertyList) {
    const auto list = as<NSDictionary>(propertyList);
    const auto url = list.get<NSString>(NSString(kURL));
    const auto type = list.get<NSString>(NSString(kMIMEType));
    const auto data = list.get<NSData>(NSString(kData));
    if (!url || !type || !data) return nullptr;
    return WebResource(data, NSURL::URLWithString(url), type, list.get<NSString>(NSString(kTextEncodingName)),
                       list.get<NSString>(NSString(kFrameName)));
}

NSDictionary WebResource::propertyList() const {
    if (!body()) return nullptr;
    NSMutableDictionary list;
    auto add = [&](const char16_t* key, const NSObject& value) {
        if (value) list.setObject(value, NSString(key));
    };
    add(kData, data());
    add(kFrameName, frameName());
    add(kMIMEType, MIMEType());
    add(kTextEncodingName, textEncodingName());
    add(kURL, URL().absoluteString());
    return std::move(list).copy();
}

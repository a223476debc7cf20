// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLRequest.h"

struct NSURLRequest::Body final : ObjectBody {
    explicit Body(const NSMutableURLRequest& fields) : ObjectBody(NSKind::other), fields(fields) {}

    std::string_view className() const override { return "NSURLRequest"; }
    std::u16string description(unsigned) const override {
        return u"<NSURLRequest> { URL: " + printed(fields.URL()) + u" }";
    }

    const NSMutableURLRequest fields;
};

NSURLRequest::NSURLRequest(const NSMutableURLRequest& request) : NSObject(new Body(request)) {}

const NSMutableURLRequest& NSURLRequest::fields() const {
    static const NSMutableURLRequest none{NSURL()};
    return body() ? static_cast<const Body*>(body())->fields : none;
}

NSURL NSURLRequest::URL() const { return fields().URL(); }
NSURLRequestCachePolicy NSURLRequest::cachePolicy() const { return fields().cachePolicy(); }
bool NSURLRequest::HTTPShouldHandleCookies() const { return fields().HTTPShouldHandleCookies(); }
NSObject NSURLRequest::property(const NSString& key) const { return fields().properties().objectForKey(key); }

// SPDX-License-Identifier: Apache-2.0
//
// What is asked of the URL-loading system: a URL, how caches may take part, and properties that travel with
// the request for whoever answers it.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSURL.h"

enum NSURLRequestCachePolicy : unsigned {
    NSURLRequestUseProtocolCachePolicy = 0,
    NSURLRequestReloadIgnoringLocalCacheData = 1,
    NSURLRequestReturnCacheDataElseLoad = 2,
    NSURLRequestReturnCacheDataDontLoad = 3, // what no cache holds fails
};

// A request in the making; `copy` of NSURLRequest makes a value of it.
class NSMutableURLRequest {
public:
    explicit NSMutableURLRequest(const NSURL& url) : url_(url) {}

    const NSURL& URL() const { return url_; }

    NSURLRequestCachePolicy cachePolicy() const { return cachePolicy_; }
    void setCachePolicy(NSURLRequestCachePolicy policy) { cachePolicy_ = policy; }

    bool HTTPShouldHandleCookies() const { return handlesCookies_; }
    void setHTTPShouldHandleCookies(bool flag) { handlesCookies_ = flag; }

    // Private to those who answer requests: NSURLProtocol::setProperty and propertyForKey.
    const NSMutableDictionary& properties() const { return properties_; }
    NSMutableDictionary& properties() { return properties_; }

private:
    NSURL url_;
    NSURLRequestCachePolicy cachePolicy_ = NSURLRequestUseProtocolCachePolicy;
    bool handlesCookies_ = true;
    NSMutableDictionary properties_;
};

// An immutable request, or nil.
class NSURLRequest : public NSObject {
public:
    NSURLRequest() = default;
    NSURLRequest(std::nullptr_t) {}
    explicit NSURLRequest(const NSURL& url) : NSURLRequest(NSMutableURLRequest(url)) {}
    NSURLRequest(const NSMutableURLRequest& request);

    // For nil: the answers of a request without a URL.
    NSURL URL() const;
    NSURLRequestCachePolicy cachePolicy() const;
    bool HTTPShouldHandleCookies() const;
    NSObject property(const NSString& key) const;

private:
    struct Body;
    const NSMutableURLRequest& fields() const;
};

// SPDX-License-Identifier: Apache-2.0
//
// Handlers of requests: a class of them that says yes to a request answers it in place of the network.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSURLRequest.h"
#include "Platform/Foundation/NSURLResponse.h"

#include <memory>

enum NSURLCacheStoragePolicy : unsigned {
    NSURLCacheStorageAllowed = 0,
    NSURLCacheStorageAllowedInMemoryOnly = 1,
    NSURLCacheStorageNotAllowed = 2,
};

class NSURLProtocol;

// Takes a handler's answer: one response, any number of pieces of data, then the end.
class NSURLProtocolClient {
public:
    virtual ~NSURLProtocolClient() = default;
    virtual void didReceiveResponse(NSURLProtocol& protocol, const NSURLResponse& response,
                                    NSURLCacheStoragePolicy policy) = 0;
    virtual void didLoadData(NSURLProtocol& protocol, const NSData& data) = 0;
    virtual void didFinishLoading(NSURLProtocol& protocol) = 0;
    virtual void didFailWithError(NSURLProtocol& protocol, const NSError& error) = 0;
};

// One load. The client may be null, and outlives the load.
class NSURLProtocol {
public:
    // What a class of handlers does before there is a handler.
    struct Class {
        bool (*canInitWithRequest)(const NSURLRequest& request);
        NSURLRequest (*canonicalRequestForRequest)(const NSURLRequest& request);
        std::unique_ptr<NSURLProtocol> (*initWithRequest)(const NSURLRequest& request,
                                                          NSURLProtocolClient* client);
    };

    NSURLProtocol(const NSURLRequest& request, NSURLProtocolClient* client)
        : request_(request), client_(client) {}
    virtual ~NSURLProtocol() = default;

    virtual void startLoading() = 0;
    virtual void stopLoading() = 0;

    const NSURLRequest& request() const { return request_; }
    NSURLProtocolClient* client() const { return client_; }

    // For the whole process, which keeps a reference to it. False for a class that lacks a function, and when
    // there are more classes than any program has use for.
    static bool registerClass(const Class& protocolClass);
    static void unregisterClass(const Class& protocolClass);

    // Asks the classes, the one registered last first; null when none takes the request.
    static const Class* classForRequest(const NSURLRequest& request);

    static NSObject propertyForKey(const NSString& key, const NSURLRequest& request) {
        return request.property(key);
    }
    static void setProperty(const NSObject& value, const NSString& key, NSMutableURLRequest& request) {
        request.properties().setObject(value, key);
    }

private:
    NSURLRequest request_;
    NSURLProtocolClient* client_;
};

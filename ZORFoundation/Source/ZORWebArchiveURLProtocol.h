// SPDX-License-Identifier: Apache-2.0
//
// Answers the requests of an archived page from what travels inside them, never from the network. Keeps no
// state, so that it may be called on any thread.
#pragma once

#include "Platform/Foundation/NSURLProtocol.h"

// The archived resource that a request carries: a dictionary with the keys "url", "mimeType", "data" and
// "textEncodingName", each present when the resource has that value. nil when the request carries none.
NSDictionary zorArchivedResource(const NSURLRequest& request);
void zorSetArchivedResource(NSMutableURLRequest& request, const NSDictionary& resource);

class ZORWebArchiveURLProtocol final : public NSURLProtocol {
public:
    using NSURLProtocol::NSURLProtocol;

    // For NSURLProtocol::registerClass.
    static const Class& protocolClass();

    // Requests that carry a resource. The schemes "x-msg" and "safari-resource" are taken without one, too:
    // they are answered empty instead of going anywhere.
    static bool canInitWithRequest(const NSURLRequest& request);
    static NSURLRequest canonicalRequestForRequest(const NSURLRequest& request) { return request; }

    void startLoading() override;
    void stopLoading() override {}

    // The two steps of an answer; the argument is of no use.
    void zorSendResponse(const NSObject& ignored);
    void zorSendData(const NSObject& ignored);
};

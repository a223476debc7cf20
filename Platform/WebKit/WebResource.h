// SPDX-License-Identifier: Apache-2.0
//
// One resource of a web page as an archive keeps it: a document, a style sheet, an image.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSURL.h"

class WebResource : public NSObject {
public:
    WebResource() = default;
    WebResource(std::nullptr_t) {}
    // The encoding's and the frame's name may be nil.
    WebResource(const NSData& data, const NSURL& url, const NSString& MIMEType,
                const NSString& textEncodingName, const NSString& frameName);

    // nil for nil, and where the resource has no such value.
    NSURL URL() const;
    NSString MIMEType() const;
    NSString textEncodingName() const;
    NSData data() const;
    NSString frameName() const;

    // The form in which archives hold it. nil when the URL, the MIME type or the data is missing or of
    // another class; names of another class count as missing.
    static WebResource withPropertyList(const NSObject& propertyList);
    NSDictionary propertyList() const;

private:
    struct Body;
    const Body* fields() const;
};

// SPDX-License-Identifier: Apache-2.0
//
// A saved web page: its main resource, the resources that it uses, and an archive for each of its frames. The
// file is a property list in any form.
#pragma once

#include "Platform/WebKit/WebResource.h"

#include <vector>

class WebArchive : public NSObject {
public:
    WebArchive() = default;
    WebArchive(std::nullptr_t) {}
    WebArchive(const WebResource& mainResource, std::vector<WebResource> subresources,
               std::vector<WebArchive> subframeArchives);

    // nil when the bytes are no list with a usable main resource, or archives are nested deeper than 64.
    // Subresources and subframe archives that are not usable are left out.
    static WebArchive initWithData(const NSData& data);

    // nil and empty for nil.
    WebResource mainResource() const;
    const std::vector<WebResource>& subresources() const;
    const std::vector<WebArchive>& subframeArchives() const;

    // As a binary property list; nil for nil.
    NSData data() const;

private:
    struct Body;
    struct Reader;
    const Body& fields() const;
    NSDictionary propertyList() const;
};

// SPDX-License-Identifier: Apache-2.0
//
// Serves an archive to the view that shows it: every request that the page makes is replaced by one that
// carries the archived resource, for ZORWebArchiveURLProtocol to answer. A request for anything else is
// refused when offline, and goes to the network otherwise.
#pragma once

#include "Platform/WebKit/WebDelegates.h"

#include <string>
#include <unordered_map>
#include <vector>

class ZORWebArchiveWebResourceLoadDelegate final : public WebResourceLoadDelegate {
public:
    // Requests that the archive cannot answer must not reach the network.
    void setOffline(bool flag) { isOffline_ = flag; }
    // Attach archived resources to requests at all.
    void setWorkaroundEnabled(bool flag) { isWorkaroundEnabled_ = flag; }

    // Rebuilds the table from the archive.
    void setWebArchive(const WebArchive& archive);

    // Add to the table: the main resource, the subresources, then the archives of the frames, depth first. Of
    // resources with the same URL the one that was added last counts; one without a URL is left out.
    void addResources(const WebArchive& archive);
    void addResource(const WebResource& resource);

    // By the text of the URL, or else the first resource in the table whose URL ends with a slash and the
    // last component of the path: scheme, host and folders do not count then, so that a page finds what was
    // saved under another address. nil when there is none.
    WebResource archivedResourceForURL(const NSURL& url) const;

    NSMutableURLRequest archiveRequestForURL(const NSURL& url) const;

    NSURLRequest webViewResourceWillSendRequest(WebView& view, const NSURLRequest& request,
                                                const NSURLResponse* redirectResponse,
                                                const WebDataSource& dataSource) override;
    void webViewResourceDidFinishLoading(WebView& view, const WebDataSource& dataSource) override;
    void webViewResourceDidFailLoadingWithError(WebView& view, const NSError& error,
                                                const WebDataSource& dataSource) override;
    void webViewResourceDidReceiveAuthenticationChallenge(WebView& view,
                                                          const NSURLAuthenticationChallenge& challenge,
                                                          const WebDataSource& dataSource) override;

private:
    WebArchive webArchive_;
    std::vector<std::pair<std::u16string, WebResource>> resources_; // in the table's order
    std::unordered_map<std::u16string, size_t> urlToResource_;      // places in resources_
    bool isOffline_ = false;
    bool isWorkaroundEnabled_ = false;
};

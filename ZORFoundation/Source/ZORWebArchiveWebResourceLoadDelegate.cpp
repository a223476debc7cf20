// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/ZORWebArchiveWebResourceLoadDelegate.h"

#include "Platform/Foundation/NSDebug.h"
#include "Platform/Foundation/NSLog.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/ZORWebArchiveURLProtocol.h"

namespace {

NSDictionary recordOf(const WebResource& resource) {
    NSMutableDictionary record;
    auto add = [&](const char16_t* key, const NSObject& value) {
        if (value) record.setObject(value, NSString(key));
    };
    add(u"url", resource.URL());
    add(u"mimeType", resource.MIMEType());
    add(u"data", resource.data());
    add(u"textEncodingName", resource.textEncodingName());
    return std::move(record).copy();
}

} // namespace

void ZORWebArchiveWebResourceLoadDelegate::setWebArchive(const WebArchive& archive) {
    webArchive_ = archive;
    resources_.clear();
    urlToResource_.clear();
    addResources(archive);
}

void ZORWebArchiveWebResourceLoadDelegate::addResources(const WebArchive& archive) {
    if (!archive) return;
    addResource(archive.mainResource());
    for (const WebResource& resource : archive.subresources()) addResource(resource);
    for (const WebArchive& frame : archive.subframeArchives()) addResources(frame);
}

void ZORWebArchiveWebResourceLoadDelegate::addResource(const WebResource& resource) {
    const NSString key = resource.URL().description();
    if (!key) return;
    auto [place, isNew] = urlToResource_.try_emplace(key.text(), resources_.size());
    if (isNew) {
        resources_.emplace_back(key.text(), resource);
    } else {
        resources_[place->second].second = resource;
    }
}

WebResource ZORWebArchiveWebResourceLoadDelegate::archivedResourceForURL(const NSURL& url) const {
    if (!url) return nullptr;
    if (auto exact = urlToResource_.find(url.description().text()); exact != urlToResource_.end())
        return resources_[exact->second].second;
    const NSString path = url.path();
    if (!path) return nullptr;
    const std::u16string suffix = u"/" + lastPathComponent(path).text();
    for (const auto& [key, resource] : resources_) {
        if (key.ends_with(suffix)) return resource;
    }
    return nullptr;
}

NSMutableURLRequest ZORWebArchiveWebResourceLoadDelegate::archiveRequestForURL(const NSURL& url) const {
    NSMutableURLRequest request(url);
    request.setCachePolicy(isOffline_ ? NSURLRequestReturnCacheDataDontLoad
                                      : NSURLRequestReloadIgnoringLocalCacheData);
    if (!isWorkaroundEnabled_) return request;
    if (const WebResource resource = archivedResourceForURL(url)) {
        zorSetArchivedResource(request, recordOf(resource));
        request.setHTTPShouldHandleCookies(false);
    } else if (NSDebugEnabled()) {
        NSLog(stringWithFormat("no archived resource for: %@", url));
    }
    return request;
}

NSURLRequest ZORWebArchiveWebResourceLoadDelegate::webViewResourceWillSendRequest(WebView&,
                                                                                  const NSURLRequest& request,
                                                                                  const NSURLResponse*,
                                                                                  const WebDataSource&) {
    return archiveRequestForURL(request.URL());
}

void ZORWebArchiveWebResourceLoadDelegate::webViewResourceDidFinishLoading(WebView&, const WebDataSource&) {}

void ZORWebArchiveWebResourceLoadDelegate::webViewResourceDidFailLoadingWithError(WebView&,
                                                                                  const NSError& error,
                                                                                  const WebDataSource&) {
    if (NSDebugEnabled()) NSLog(stringWithFormat("failed to load: %@", error));
}

void ZORWebArchiveWebResourceLoadDelegate::webViewResourceDidReceiveAuthenticationChallenge(
    WebView&, const NSURLAuthenticationChallenge& challenge, const WebDataSource&) {
    challenge.sender.cancelAuthenticationChallenge(challenge);
}

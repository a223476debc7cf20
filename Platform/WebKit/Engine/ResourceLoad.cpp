// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Engine/ResourceLoad.h"

#include "Platform/Foundation/NSURLCache.h"
#include "Platform/WebKit/Engine/PrivateSchemes.h"
#include "Platform/WebKit/PDFText.h"

#include <algorithm>

namespace {

constexpr unsigned kMostRedirects = 20;

// As it may stand in a header: archives hold what they like.
std::string headerText(const NSString& text) {
    std::string clean = text.utf8();
    std::erase_if(clean, [](char c) { return c < ' ' || c == '\x7F'; });
    return clean;
}

std::string contentTypeOf(const NSURLResponse& response) {
    if (isPDF(response.MIMEType)) return "text/plain; charset=utf-8";
    std::string type = headerText(response.MIMEType);
    const std::string charset = headerText(response.textEncodingName);
    return type.empty() || charset.empty() ? type : type + "; charset=" + charset;
}

// "https://host:1/path" to "https://host:1".
std::string_view originOf(std::string_view url) {
    const size_t authority = url.find("://");
    return authority == std::string_view::npos ? std::string_view()
                                               : url.substr(0, url.find_first_of("/?#", authority + 3));
}

bool isOfNetwork(const std::string& url) {
    const auto scheme = PrivateSchemes::schemeOf(url);
    return (scheme == "http" || scheme == "https") && NetworkLoad::isValid(url);
}

} // namespace

ResourceLoad::ResourceLoad(LoadingPage& page, WebKitURISchemeRequest* request)
    : page_(page), request_(retained(request)) {}

void ResourceLoad::start() {
    const std::string url = PrivateSchemes::publicURL(webkit_uri_scheme_request_get_uri(request_.get()));
    send(NSURL::URLWithString(NSString::fromUTF8(url)), nullptr);
}

void ResourceLoad::send(const NSURL& url, const NSURLResponse* redirectResponse) {
    NSURLRequest request(url);
    if (WebResourceLoadDelegate* delegate = page_.view.resourceLoadDelegate()) {
        request = delegate->webViewResourceWillSendRequest(page_.view, request, redirectResponse,
                                                           page_.view.mainFrame().dataSource());
    }
    url_ = request.URL().absoluteString().utf8();
    if (request) {
        answer(request);
    } else {
        finishWithError(urlError(NSURLErrorCancelled, url_));
    }
}

void ResourceLoad::answer(const NSURLRequest& request) {
    if (const NSURLProtocol::Class* handlers = NSURLProtocol::classForRequest(request)) {
        protocol_ = handlers->initWithRequest(handlers->canonicalRequestForRequest(request), this);
        protocol_->startLoading();
    } else if (request.cachePolicy() == NSURLRequestReturnCacheDataDontLoad) {
        answerFromCache(request);
    } else if (isOfNetwork(url_)) {
        network_.reset(new NetworkLoad(page_.session.get(), url_, *this));
    } else {
        // Files above all: no page reads this system's.
        finishWithError(urlError(NSURLErrorUnsupportedURL, url_));
    }
}

void ResourceLoad::answerFromCache(const NSURLRequest& request) {
    if (const auto cached = NSURLCache::sharedURLCache().cachedResponseForRequest(request)) {
        finish(cached->response, cached->data);
    } else {
        finishWithError(urlError(NSURLErrorResourceUnavailable, url_));
    }
}

void ResourceLoad::didReceiveResponse(NSURLProtocol&, const NSURLResponse& response,
                                      NSURLCacheStoragePolicy) {
    response_ = response;
}
void ResourceLoad::didLoadData(NSURLProtocol&, const NSData& data) { data_ += data.bytes(); }
void ResourceLoad::didFinishLoading(NSURLProtocol&) { finish(response_, NSData(std::move(data_))); }
void ResourceLoad::didFailWithError(NSURLProtocol&, const NSError& error) { finishWithError(error); }

void ResourceLoad::networkDidRespond(SoupMessage* message, GInputStream* body) {
    if (wasChallenged_) {
        finishWithError(urlError(NSURLErrorUserAuthenticationRequired, url_));
    } else if (!redirect(message)) {
        SoupMessageHeaders* headers = soup_message_get_response_headers(message);
        const char* type = soup_message_headers_get_one(headers, "Content-Type");
        finishWithStream(body, -1, type ? type : "", allowedOrigin(message));
    }
}

// A redirect is a request like any other, so that what the archive holds is taken from there.
bool ResourceLoad::redirect(SoupMessage* message) {
    const char* location =
        soup_message_headers_get_one(soup_message_get_response_headers(message), "Location");
    if (!SOUP_STATUS_IS_REDIRECTION(soup_message_get_status(message)) || !location) return false;
    char* target = g_uri_resolve_relative(url_.c_str(), location, kHTTPFlags, nullptr);
    if (!target || ++redirects_ > kMostRedirects) {
        g_free(target);
        finishWithError(urlError(NSURLErrorHTTPTooManyRedirects, url_));
        return true;
    }
    const NSURLResponse response{NSURL::URLWithString(NSString::fromUTF8(url_)), nullptr, -1, nullptr};
    const NSURL url = NSURL::URLWithString(NSString::fromUTF8(target));
    g_free(target);
    send(url, &response);
    return true;
}

void ResourceLoad::networkDidFail(const NSError& error) { finishWithError(error); }

void ResourceLoad::networkWasChallenged() {
    wasChallenged_ = true;
    if (WebResourceLoadDelegate* delegate = page_.view.resourceLoadDelegate()) {
        delegate->webViewResourceDidReceiveAuthenticationChallenge(page_.view, {*this},
                                                                   page_.view.mainFrame().dataSource());
    }
}

// Every challenge is cancelled: there is nobody to ask.
void ResourceLoad::cancelAuthenticationChallenge(const NSURLAuthenticationChallenge&) {}

// To the engine every request is one to another origin. Where it is not, the page may read the answer; else
// what the server says counts.
std::string ResourceLoad::allowedOrigin(SoupMessage* message) const {
    if (!originOf(url_).empty() && originOf(url_) == originOf(page_.url)) return "*";
    const char* allowed = soup_message_headers_get_one(soup_message_get_response_headers(message),
                                                       "Access-Control-Allow-Origin");
    return allowed ? allowed : "";
}

void ResourceLoad::finish(const NSURLResponse& response, const NSData& data) {
    page_.resources.emplace_back(data, response.URL, response.MIMEType, response.textEncodingName, nullptr);
    const NSData shown = isPDF(response.MIMEType) ? textOfPDF(data) : data;
    auto release = [](gpointer kept) { delete static_cast<NSData*>(kept); };
    GBytes* bytes =
        g_bytes_new_with_free_func(shown.bytes().data(), shown.length(), release, new NSData(shown));
    GObjectPointer<GInputStream> stream(g_memory_input_stream_new_from_bytes(bytes));
    g_bytes_unref(bytes);
    finishWithStream(stream.get(), int64_t(shown.length()), contentTypeOf(response), "*");
}

void ResourceLoad::finishWithStream(GInputStream* stream, int64_t length, const std::string& contentType,
                                    const std::string& allowedOrigin) {
    isDone_ = true;
    GObjectPointer<WebKitURISchemeResponse> response(webkit_uri_scheme_response_new(stream, length));
    if (!contentType.empty())
        webkit_uri_scheme_response_set_content_type(response.get(), contentType.c_str());
    SoupMessageHeaders* headers = soup_message_headers_new(SOUP_MESSAGE_HEADERS_RESPONSE);
    if (!allowedOrigin.empty())
        soup_message_headers_append(headers, "Access-Control-Allow-Origin", allowedOrigin.c_str());
    webkit_uri_scheme_response_set_http_headers(response.get(), headers);
    webkit_uri_scheme_request_finish_with_response(request_.get(), response.get());
    if (WebResourceLoadDelegate* delegate = page_.view.resourceLoadDelegate())
        delegate->webViewResourceDidFinishLoading(page_.view, page_.view.mainFrame().dataSource());
}

void ResourceLoad::finishWithError(const NSError& error) {
    isDone_ = true;
    GError* failure = g_error_new_literal(WEBKIT_NETWORK_ERROR, WEBKIT_NETWORK_ERROR_FAILED,
                                          error.localizedDescription().utf8().c_str());
    webkit_uri_scheme_request_finish_error(request_.get(), failure);
    g_error_free(failure);
    if (WebResourceLoadDelegate* delegate = page_.view.resourceLoadDelegate()) {
        delegate->webViewResourceDidFailLoadingWithError(page_.view, error,
                                                         page_.view.mainFrame().dataSource());
    }
}

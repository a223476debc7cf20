// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSURLCache.h"

namespace {

std::unique_ptr<NSURLCache>& shared() {
    static auto cache = std::make_unique<NSURLCache>(size_t(4) << 20, 0, nullptr);
    return cache;
}

std::u16string keyOf(const NSURLRequest& request) { return request.URL().absoluteString().text(); }

} // namespace

NSURLCache& NSURLCache::sharedURLCache() { return *shared(); }

void NSURLCache::setSharedURLCache(std::unique_ptr<NSURLCache> cache) {
    if (cache) shared() = std::move(cache);
}

std::optional<NSCachedURLResponse> NSURLCache::cachedResponseForRequest(const NSURLRequest& request) const {
    auto found = responses_.find(keyOf(request));
    return found == responses_.end() ? std::nullopt : std::optional(found->second);
}

void NSURLCache::storeCachedResponse(const NSCachedURLResponse& response, const NSURLRequest& request) {
    const std::u16string key = keyOf(request);
    auto old = responses_.find(key);
    const size_t others = size_ - (old == responses_.end() ? 0 : old->second.data.length());
    if (response.data.length() > memoryCapacity_ - others) return;
    size_ = others + response.data.length();
    responses_.insert_or_assign(key, response);
}

void NSURLCache::removeAllCachedResponses() {
    responses_.clear();
    size_ = 0;
}

void NSURLCache::setMemoryCapacity(size_t bytes) {
    memoryCapacity_ = bytes;
    if (size_ > bytes) removeAllCachedResponses();
}

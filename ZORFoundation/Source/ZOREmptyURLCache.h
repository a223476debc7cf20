// SPDX-License-Identifier: Apache-2.0
//
// A cache that has nothing, so that a request which must not load fails at once instead of being answered
// with something stale.
#pragma once

#include "Platform/Foundation/NSURLCache.h"

class ZOREmptyURLCache final : public NSURLCache {
public:
    using NSURLCache::NSURLCache;

    std::optional<NSCachedURLResponse> cachedResponseForRequest(const NSURLRequest&) const override {
        return std::nullopt;
    }
};

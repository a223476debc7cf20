// SPDX-License-Identifier: Apache-2.0
//
// Answers of earlier requests, in memory: nothing that is loaded here is written to disk, whatever the disk
// capacity says.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSURLRequest.h"
#include "Platform/Foundation/NSURLResponse.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

struct NSCachedURLResponse {
    NSURLResponse response;
    NSData data;
};

class NSURLCache {
public:
    // Capacities in bytes.
    NSURLCache(size_t memoryCapacity, size_t diskCapacity, const NSString& diskPath)
        : memoryCapacity_(memoryCapacity), diskCapacity_(diskCapacity), diskPath_(diskPath) {}
    virtual ~NSURLCache() = default;

    // The process's own. Never null; the one before goes.
    static NSURLCache& sharedURLCache();
    static void setSharedURLCache(std::unique_ptr<NSURLCache> cache);

    virtual std::optional<NSCachedURLResponse> cachedResponseForRequest(const NSURLRequest& request) const;
    // A response that does not fit beside the others is not stored.
    void storeCachedResponse(const NSCachedURLResponse& response, const NSURLRequest& request);
    void removeAllCachedResponses();

    size_t memoryCapacity() const { return memoryCapacity_; }
    size_t diskCapacity() const { return diskCapacity_; }
    const NSString& diskPath() const { return diskPath_; }
    // Drops everything when what is stored no longer fits.
    void setMemoryCapacity(size_t bytes);
    void setDiskCapacity(size_t bytes) { diskCapacity_ = bytes; }

private:
    size_t memoryCapacity_, diskCapacity_;
    NSString diskPath_;
    std::unordered_map<std::u16string, NSCachedURLResponse> responses_; // by the text of the URL
    size_t size_ = 0;                                                   // bytes of their data
};

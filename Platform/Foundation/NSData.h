// SPDX-License-Identifier: Apache-2.0
//
// Bytes as a value, and their way from and to files.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

class NSError;
class NSURL;

enum : unsigned {
    NSDataReadingMappedIfSafe = 1,
    NSDataReadingUncached = 2, // advice only: the bytes are read, not mapped, and dropped from the cache
};

enum : unsigned {
    NSDataWritingAtomic = 1, // to a temporary file in the same directory, then renamed over the target
    NSDataWritingWithoutOverwriting = 2,
};

class NSData : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::data;

    NSData() = default;
    NSData(std::nullptr_t) {}
    explicit NSData(std::string bytes);
    explicit NSData(const ObjectBody* body) : NSObject(body) {}

    // "" for nil. The view lives as long as a handle to the value does.
    std::string_view bytes() const;
    size_t length() const { return bytes().size(); }

    // The whole file, or nil and a Cocoa error (260 missing, 257 not permitted, 256 otherwise) over the POSIX
    // one.
    static NSData dataWithContentsOfFile(const NSString& path, unsigned options, NSError* error);
    // The same of a file URL: Cocoa 262 for another one, 258 for one whose path no file can have.
    static NSData dataWithContentsOfURL(const NSURL& url, unsigned options, NSError* error);

    // False and a Cocoa error (4 for a missing folder, 513, 516, 640, 642, 512 otherwise) over the POSIX one.
    // With the atomic option the target is the old file or the whole new one at every instant, an existing
    // file's permissions stay, links are followed, and no temporary file is left behind; a pipe or a device
    // is written to in place.
    bool writeToFile(const NSString& path, unsigned options, NSError* error) const;
    // The same to a file URL: Cocoa 518 for another one, 514 for one whose path no file can have.
    bool writeToURL(const NSURL& url, unsigned options, NSError* error) const;
};

// SPDX-License-Identifier: Apache-2.0
//
// A URL as text, relative to a base URL where it has one.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

class NSURL : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::url;

    NSURL() = default;
    explicit NSURL(const ObjectBody* body) : NSObject(body) {}

    static NSURL URLWithString(const NSString& text, const NSURL& base = NSURL());

    // The URL of a path: percent-escaped, with a trailing slash when an existing directory is there. A
    // relative path is taken in the current directory; nil when that is gone.
    static NSURL fileURLWithPath(const NSString& path);
    // The same of a path in bytes, marked as a directory or not whatever is there.
    static NSURL fileURLWithFileSystemRepresentation(std::string_view bytes, bool isDirectory);

    // As it was given, without the base.
    NSString relativeString() const;
    NSURL baseURL() const;
    NSString absoluteString() const;
    bool isFileURL() const;
    // The decoded path without a trailing slash; nil for URLs that have none, such as mailto.
    NSString path() const;
};

// SPDX-License-Identifier: Apache-2.0
//
// An image file, of which only the descriptive properties are read, never a pixel.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSURL.h"

class CGImageSource {
public:
    // No source.
    CGImageSource() = default;

    explicit operator bool() const { return bool(properties_); }

private:
    friend CGImageSource CGImageSourceCreateWithURL(const NSURL& url);
    friend NSDictionary CGImageSourceCopyPropertiesAtIndex(const CGImageSource& source, size_t index);

    NSDictionary properties_; // of image 0
};

// No source when the file cannot be read or is not an image; or when the module that reads images is missing,
// which is logged.
CGImageSource CGImageSourceCreateWithURL(const NSURL& url);

// The properties of one image of the source by the names of CGImageProperties.h: a dictionary of IPTC fields
// and one of TIFF fields, each only when it has any. Values are strings, and arrays of strings where a field
// can be repeated. Nothing when there is no image of this index; only the first one is looked at.
NSDictionary CGImageSourceCopyPropertiesAtIndex(const CGImageSource& source, size_t index);

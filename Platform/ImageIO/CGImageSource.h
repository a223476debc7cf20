// SPDX-License-Identifier: Apache-2.0
//
// An image file, of which only the descriptive properties are read, never a pixel. The reader lies in the
// module "ImageIO", which is loaded when a source is first made.
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

// Whether images can be read at all; if not, a sentence in `why` names the module that is missing.
bool CGImageSourceIsAvailable(NSString* why);

// No source when the file cannot be read or is not an image.
CGImageSource CGImageSourceCreateWithURL(const NSURL& url);

// The properties of one image of the source by the names of CGImageProperties.h: a dictionary of IPTC fields
// and one of TIFF fields, each only when it has any. Values are strings, and arrays of strings where a field
// can be repeated. Nothing when there is no image of this index; only the first one is looked at.
NSDictionary CGImageSourceCopyPropertiesAtIndex(const CGImageSource& source, size_t index);

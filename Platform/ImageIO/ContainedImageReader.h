// SPDX-License-Identifier: Apache-2.0
//
// The module "ImageIO" at work in a process of its own, since a damaged image may make its library crash or
// search for ever. This process never loads the library.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/ImageIO/ImageReader.h"

enum class ImageStatus {
    read,     // the fields are there
    noImage,  // not an image, or none of which anything can be read
    noReader, // the module is missing
};

// Reads an open file. With `noReader`, `why` says what is missing.
ImageStatus readImageContained(int file, std::vector<ImageField>& fields, NSString& why);

// SPDX-License-Identifier: Apache-2.0
//
// The character encoding of an HTML document. A byte order mark decides; after it what the document declares
// in a META element or in an XML declaration, with the meanings that the Web gives to the names; else Windows
// code page 1252.
#pragma once

#include "Platform/Foundation/NSStringEncoding.h"

#include <cstddef>
#include <string>
#include <string_view>

struct HTMLEncoding {
    NSStringEncoding encoding = NSWindowsCP1252StringEncoding;
    size_t markLength = 0; // bytes of the byte order mark
};

HTMLEncoding sniffHTMLEncoding(std::string_view bytes);

// The document in well-formed UTF-8 without a byte order mark. The result points into `bytes` when they are
// that already, else into `converted`, which the function fills.
std::string_view htmlAsUTF8(std::string_view bytes, std::string& converted);

// SPDX-License-Identifier: Apache-2.0
//
// A whole document, which may hold others of its kind.
#pragma once

#include "Platform/AppKit/DocumentReader.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace OfficeOpenXML {

// What the documents in a document may cost, all of them together, however they lie in one another.
struct Allowance {
    size_t depth = 4;
    size_t parts = 256;
    uint64_t inflatedBytes = 256 << 20;
};

ReadStatus readDocument(std::string_view bytes, Allowance& allowance, Deadline& deadline,
                        DocumentContents& contents);

// One that lies in another: it takes its share of the allowance, and nothing is read when that is used up.
ReadStatus readInnerDocument(std::string_view bytes, Allowance& allowance, Deadline& deadline,
                             DocumentContents& contents);

} // namespace OfficeOpenXML

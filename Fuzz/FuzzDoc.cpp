// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as a binary Word document.
#include "Platform/AppKit/DocumentReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    DocumentContents contents;
    Deadline deadline;
    ReadStatus status =
        readDocFormat(std::string_view(reinterpret_cast<const char*>(data), size), deadline, contents);
    if (status != ReadStatus::read && !contents.text.empty()) std::abort();
    // Two characters of text and one of markers for each byte at most; parts gain a paragraph end, markers
    // two tabs.
    if (contents.text.size() > 6 * size) std::abort();
    return 0;
}

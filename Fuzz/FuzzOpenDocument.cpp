// SPDX-License-Identifier: Apache-2.0
//
// OpenDocument text, as flat XML and as packages.
#include "Platform/AppKit/DocumentReader.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    DocumentContents contents;
    Deadline deadline(std::chrono::duration<double>(5));
    readOpenDocument({reinterpret_cast<const char*>(data), size}, deadline, contents);
    return 0;
}

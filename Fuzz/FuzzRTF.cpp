// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as RTF, alone and as the text of a package.
#include "Platform/AppKit/DocumentReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (DocumentReader reader : {readRTF, readRTFDText}) {
        DocumentContents contents;
        Deadline deadline;
        if (reader(bytes, deadline, contents) == ReadStatus::locked) std::abort();
        // No byte gives more than two characters: a list marker gains two tabs, a part its paragraph end.
        if (contents.text.size() > 2 * size) std::abort();
    }
    return 0;
}

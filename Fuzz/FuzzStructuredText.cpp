// SPDX-License-Identifier: Apache-2.0
//
// Reads any text as JSON, as a table and as subtitles; none of them grows.
#include "Platform/Foundation/UnicodeText.h"
#include "Platform/SearchKit/StructuredText.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::u16string text = fromUTF8({reinterpret_cast<const char*>(data), size});
    if (textOfJSON(text).size() > text.size() || textOfTable(text).size() != text.size()) std::abort();
    // One line feed is put behind the last line.
    if (textOfSubtitles(text).size() > text.size() + 1) std::abort();
    return 0;
}

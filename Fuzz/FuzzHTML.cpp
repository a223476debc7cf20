// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as HTML, which never fails, and takes no more text out of them than they can hold.
#include "Platform/AppKit/DocumentReader.h"
#include "Platform/Foundation/UnicodeText.h"

#include <cstddef>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Deadline deadline;
    DocumentContents contents;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (readHTML(bytes, deadline, contents) != ReadStatus::read) std::abort();
    // A list marker is the longest text that a tag can stand for, and a decoded byte the longest a byte can.
    if (contents.text.size() > 32 * size + 64) std::abort();
    // What is not text was replaced on the way in.
    if (fromUTF8(toUTF8(contents.text)) != contents.text) std::abort();
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as XML and as a package of it, for their words.
#include "Platform/AppKit/XMLText/XMLTextReaders.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const DocumentReader reader : {readXMLText, readPackageText}) {
        DocumentContents contents;
        Deadline deadline(std::chrono::duration<double>(5));
        readGuarded(reader, bytes, deadline, contents);
    }
    return 0;
}

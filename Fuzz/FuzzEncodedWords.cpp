// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as a value in the header of a message.
#include "Platform/AppKit/MIME/EncodedWords.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view value(reinterpret_cast<const char*>(data), size);
    textOfHeaderValue(value);
    textOfExtendedParameter(value);
    return 0;
}

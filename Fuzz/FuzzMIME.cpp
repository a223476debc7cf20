// SPDX-License-Identifier: Apache-2.0
//
// Takes any bytes apart as a message.
#include "Platform/AppKit/MIME/MIMEEntity.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const MIMEEntity message(bytes);
    startsAsMIME(bytes);
    size_t total = 0;
    for (const MIMEEntity& part : message.parts()) total += part.contents().size();
    if (total > size || message.contents().size() > size) std::abort();
    if (auto page = message.find("text/html"); page && page->mediaType() != "text/html") std::abort();
    return 0;
}

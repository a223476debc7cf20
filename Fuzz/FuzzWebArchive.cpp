// SPDX-License-Identifier: Apache-2.0
//
// Any bytes as a web archive. What is read is written and comes back as it was.
#include "Platform/WebKit/WebArchive.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const NSData bytes(std::string(reinterpret_cast<const char*>(data), size));
    const WebArchive archive = WebArchive::initWithData(bytes);
    if (!archive) return 0;
    const NSData written = archive.data();
    const WebArchive again = WebArchive::initWithData(written);
    if (!again || again.data().bytes() != written.bytes()) abort();
    return 0;
}

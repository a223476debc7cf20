// SPDX-License-Identifier: Apache-2.0
//
// The entry of the module for compressed files.
#include "Platform/Foundation/Module.h"
#include "Platform/SearchKit/Compression/Decompress.h"

extern "C" __attribute__((visibility("default"))) DecompressionStatus
MODULE_ENTRY(std::string_view bytes, Deadline& deadline, std::string& all) {
    return decompress(bytes, deadline, all);
}

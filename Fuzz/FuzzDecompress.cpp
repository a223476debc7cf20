// SPDX-License-Identifier: Apache-2.0
//
// Decompresses any bytes.
#include "Platform/SearchKit/Compression/Decompress.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Deadline deadline(std::chrono::duration<double>(5));
    std::string all;
    decompress({reinterpret_cast<const char*>(data), size}, deadline, all);
    if (all.size() > size_t(257) << 20) std::abort();
    return 0;
}

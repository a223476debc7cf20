// SPDX-License-Identifier: Apache-2.0
//
// Reads any bytes as the description of an importer.
#include "Platform/SearchKit/ImporterDescriptor.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string why;
    const auto descriptor = importerDescriptor({reinterpret_cast<const char*>(data), size}, why);
    if (bool(descriptor) != why.empty()) std::abort();
    const bool isProgram = descriptor && descriptor->type == ImporterDescriptor::Type::exec;
    if (isProgram && descriptor->command.empty()) std::abort();
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
//
// Any bytes as a property list, in whatever form they are.
#include "Fuzz/PropertyListRoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (const NSObject list = propertyListWithData(bytes, nullptr, nullptr)) checkRoundTrip(list);
    return 0;
}

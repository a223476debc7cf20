// SPDX-License-Identifier: Apache-2.0
//
// Any bytes as a non-keyed archive. What is read is archived again and comes back as it was, by its bytes,
// since values that are not numbers are equal to nothing.
#include "Platform/Foundation/NSArchiver.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    NSError error;
    const NSObject object = NSUnarchiver::unarchiveObjectWithData(bytes, &error);
    if (object && error) abort();
    if (!object) return 0;
    const NSData archive = NSArchiver::archivedDataWithRootObject(object);
    const NSObject again = NSUnarchiver::unarchiveObjectWithData(archive.bytes(), &error);
    if (!again) abort();
    if (NSArchiver::archivedDataWithRootObject(again).bytes() != archive.bytes()) abort();
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
//
// Any text as a property list in the XML form, which other forms tried before would keep from it.
#include "Fuzz/PropertyListRoundTrip.h"
#include "Platform/Foundation/PropertyListFormats.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::u16string text;
    NSString problem;
    if (!decodePropertyListText(text, bytes, problem)) return 0;
    if (const NSObject list = readXMLPropertyList(text, problem)) {
        checkRoundTrip(list);
    } else if (!problem) {
        abort(); // every failure says why
    }
    return 0;
}

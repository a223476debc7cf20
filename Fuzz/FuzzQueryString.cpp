// SPDX-License-Identifier: Apache-2.0
//
// Query strings: what was read is written, and read again as the same. The input is UTF-8; malformed bytes
// become lone surrogates.
#include "Platform/Foundation/UnicodeText.h"
#include "ZORFoundation/Source/NSString+ZORConversionsBasics.h"

#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const NSDictionary values = zorQueryStringDictionary(fromUTF8(bytes, Malformed::byteEscaped));
    for (const auto& [key, value] : values) {
        // A lone surrogate can be read but not written.
        if (hasLoneSurrogate(as<NSString>(key).text()) || hasLoneSurrogate(as<NSString>(value).text()))
            return 0;
    }
    const NSString query = zorQueryStringWithDictionary(values);
    require(zorQueryStringDictionary(query) == values);
    require(zorQueryStringWithDictionary(zorQueryStringDictionary(query)).isEqualToString(query));
    return 0;
}

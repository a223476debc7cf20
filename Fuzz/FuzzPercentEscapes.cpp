// SPDX-License-Identifier: Apache-2.0
//
// Percent escapes: the input is UTF-16, its first unit a character that is left as it is.
#include "Platform/Foundation/UnicodeText.h"
#include "ZORFoundation/Source/NSString+ZORConversionsBasics.h"

#include <cstdlib>
#include <cstring>

namespace {

void require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::u16string units(size / 2, 0);
    if (units.empty()) return 0;
    std::memcpy(units.data(), data, units.size() * 2);
    const NSString kept(units.substr(0, 1)), text(units.substr(1));
    const bool whole = !hasLoneSurrogate(text.text());

    const NSString query = zorEncodeForQueryString(text);
    require(bool(query) == whole);
    if (whole) {
        require(query.text().find_first_of(u"&= \n#\"<>") == std::u16string::npos);
        require(zorDecodePercentEscapes(query).isEqualToString(text));
    }

    // What is left unescaped cannot be told from an escape when it is the percent sign itself.
    const NSString url = zorEncodeURLKeepingUnescaped(text, kept);
    require(url || !whole);
    if (url && kept.text() != u"%") require(zorDecodePercentEscapes(url).isEqualToString(text));

    const NSString decoded = zorDecodePercentEscapes(text);
    const NSString partly = zorDecodePercentEscapesKeepingEscaped(text, kept);
    require(bool(decoded) == bool(partly));
    require(!decoded || decoded.length() <= text.length());
    require(zorDecodePercentEscapesKeepingEscaped(text, nullptr).isEqualToString(text));
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
//
// Decodes any bytes: the first picks the encoding, the others are the text, and also a charset name.
#include "Platform/Foundation/EncodingNumbers.h"
#include "Platform/Foundation/UnicodeText.h"

#include <cstddef>
#include <cstdlib>
#include <iterator>

namespace {

constexpr unsigned kCodePages[] = {
    42,    437,   720,   737,   775,   850,   852,   855,   857,   858,   860,   861,   862,   863,   864,
    865,   866,   869,   874,   932,   936,   949,   950,   951,   1200,  1201,  1250,  1251,  1252,  1253,
    1254,  1255,  1256,  1257,  1258,  1361,  10000, 10006, 10007, 10010, 10029, 10079, 10081, 10082, 12000,
    12001, 20127, 20866, 21866, 28591, 28592, 28593, 28594, 28595, 28596, 28597, 28598, 28599, 28600, 28601,
    28603, 28604, 28605, 28606, 50220, 50225, 51932, 51936, 51949, 52936, 54936, 65001, 0,
};

void require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const NSStringEncoding encoding = encodingForCodePage(kCodePages[data[0] % std::size(kCodePages)]);
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);

    std::u16string text;
    const bool whole = appendDecoded(text, bytes, encoding);
    require(text.size() <= 2 * bytes.size()); // combining marks make two units of two bytes at most
    if (upperHalf(encoding) != nullptr) require(text.size() == bytes.size());
    std::u16string again;
    require(appendDecoded(again, bytes, encoding) == whole && again == text); // converters keep no state
    (void)encodingForIANAName(bytes);

    const std::u16string escaped = fromUTF8(bytes, Malformed::byteEscaped);
    require(toUTF8(escaped, LoneSurrogates::byteUnescaped) == bytes);
    require(isUTF8(bytes) == appendUTF8(text, bytes));
    require(isUTF8(toUTF8(text)));
    return 0;
}

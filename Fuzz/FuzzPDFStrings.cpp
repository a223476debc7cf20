// SPDX-License-Identifier: Apache-2.0
//
// Any bytes as what a PDF file says outside of its pages: a text, a name, an address, a date.
#include "Platform/Foundation/UnicodeText.h"
#include "Platform/PDFKit/PDFTextString.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

namespace {

constexpr double kSecondsOfYear10000 = 253'402'387'200.0; // of 1970; zones reach a day beyond

void require(bool condition) {
    if (!condition) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::u16string text = textOfPDFString(bytes);
    require(text.size() <= size && textOfPDFName(bytes).size() <= size);

    const std::u16string url = textOfPDFURI(bytes);
    require(std::all_of(url.begin(), url.end(), [](char16_t c) { return c > 0x20 && c < 0x7F; }));
    require(url.size() <= 6 * size); // a byte of Latin-1 is two of UTF-8

    if (const auto time = timeOfPDFDate(text)) require(std::abs(*time) < kSecondsOfYear10000);
    return 0;
}

// SPDX-License-Identifier: Apache-2.0
//
// Any bytes as what a page's process says of its page. All of the frames are visited.
#include "Platform/WebKit/Engine/PageSnapshot.h"

#include <cstdint>
#include <cstdlib>

namespace {

size_t lengthOf(const PageSnapshot::Frame& frame) {
    size_t length = frame.text.length() + frame.title.length() + frame.document.textContent().length();
    for (const PageSnapshot::Frame& child : frame.children) length += lengthOf(child);
    return length;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const PageSnapshot page = PageSnapshot::withFields({reinterpret_cast<const char*>(data), size});
    // Nothing comes out that was not in the bytes.
    if (lengthOf(page.main) > size) abort();
    return 0;
}

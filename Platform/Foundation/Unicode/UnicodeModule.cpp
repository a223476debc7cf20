// SPDX-License-Identifier: Apache-2.0
//
// The Unicode library's side of text comparison.
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/UnicodeText.h"

#include <string>
#include <string_view>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

namespace {

// Simple folding, one character to one: "ß" is not "ss".
std::u16string folded(std::u16string_view text) {
    std::u16string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        UChar32 c = 0;
        U16_NEXT(text.data(), i, text.size(), c);
        appendCodePoint(out, char32_t(u_foldCase(c, U_FOLD_CASE_DEFAULT)));
    }
    return out;
}

} // namespace

extern "C" __attribute__((visibility("default"))) bool MODULE_ENTRY(std::u16string_view a,
                                                                    std::u16string_view b) {
    std::u16string left = folded(a), right = folded(b);
    UErrorCode status = U_ZERO_ERROR;
    int32_t order =
        unorm_compare(left.data(), int32_t(left.size()), right.data(), int32_t(right.size()), 0, &status);
    return U_SUCCESS(status) && order == 0;
}

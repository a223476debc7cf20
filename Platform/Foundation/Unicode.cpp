// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Unicode.h"

#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSException.h"

#include <algorithm>

namespace {

bool isASCII(std::u16string_view text) {
    return std::all_of(text.begin(), text.end(), [](char16_t c) { return c < 0x80; });
}

char16_t lowered(char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c; }

} // namespace

bool isCaseInsensitiveEqual(const NSString& a, const NSString& b) {
    const std::u16string &left = a.text(), &right = b.text();
    if (isASCII(left) && isASCII(right)) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                          [](char16_t x, char16_t y) { return lowered(x) == lowered(y); });
    }
    NSString why;
    static const auto compare = reinterpret_cast<CaseInsensitiveEqual>(moduleEntry("Unicode", &why));
    if (!compare) NSException(NSGenericException, why).raise();
    return compare(left, right);
}

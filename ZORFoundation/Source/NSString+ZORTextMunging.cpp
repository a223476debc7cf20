// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

#include <algorithm>

NSString zorStringByTrimmingNulls(const NSString& text) {
    if (text.text().find(u'\0') == std::u16string::npos)
        return text; // values are immutable: the text is its own copy
    std::u16string kept;
    kept.reserve(text.length());
    std::copy_if(text.text().begin(), text.text().end(), std::back_inserter(kept),
                 [](char16_t c) { return c != 0; });
    return kept;
}

// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSStringComposition.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

#include <algorithm>

namespace {

using View = std::u16string_view;

} // namespace

NSString zorStringByTrimmingNulls(const NSString& text) {
    if (text.text().find(u'\0') == std::u16string::npos)
        return text; // values are immutable: the text is its own copy
    std::u16string kept;
    kept.reserve(text.length());
    std::copy_if(text.text().begin(), text.text().end(), std::back_inserter(kept),
                 [](char16_t c) { return c != 0; });
    return kept;
}

NSRange zorRangeOfComposedCharacterSequencesInRange(const NSString& text, NSRange range) {
    const uint64_t length = text.length();
    if (range.location >= length || range.length > length - range.location) {
        NSException(NSRangeException, stringWithFormat("Invalid range %@.", NSStringFromRange(range)))
            .raise();
    }
    const NSRange first = rangeOfComposedCharacterSequenceAtIndex(text, range.location);
    if (range.length == 0) return {first.location, 0};
    const NSRange last = rangeOfComposedCharacterSequenceAtIndex(text, range.location + range.length - 1);
    return {first.location, last.location + last.length - first.location};
}

NSString zorSubstringToComposedIndex(const NSString& text, size_t index) {
    if (index >= text.length()) return text;
    return View(text.text()).substr(0, rangeOfComposedCharacterSequenceAtIndex(text, index).location);
}

NSString zorStringByAddingSuffix(const NSString& text, const NSString& suffix, uint64_t total) {
    if (total < suffix.length()) {
        constexpr const char* selector = "zorStringByAddingSuffix:trimmingStemToTotal:";
        zorStopAfterReport(
            {"ZORFoundation/Source/NSString+ZORBasics", __LINE__, {ZORReceiver::Kind::instance}, selector},
            "-[NSString(ZORTextMunging) zorStringByAddingSuffix:trimmingStemToTotal:]",
            stringWithFormat("suffix: '%@' length: %llu", suffix, total), "(length >= [suffix length])");
    }
    if (text.length() + suffix.length() <= total) return text + suffix;
    return zorSubstringToComposedIndex(text, total - suffix.length()) + suffix;
}

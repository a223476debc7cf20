// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSStringComposition.h"
#include "ZORFoundation/Source/NSString+ZORPunctuation.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

namespace {

using View = std::u16string_view;

} // namespace

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

NSString zorStringByTruncatingMiddleAfterComposedLength(const NSString& text, size_t length) {
    const View units = text.text();
    if (length >= units.size() - units.size() / 2) return text;
    const NSRange middle =
        zorRangeOfComposedCharacterSequencesInRange(text, {length, units.size() - 2 * length});
    return NSString(units.substr(0, middle.location)) + zorEllipsis() +
           NSString(units.substr(middle.location + middle.length));
}

NSString zorStringByChoppingComposedCharacter(const NSString& text) {
    // The last unit but one, not the last: plain characters go by twos.
    return text.length() < 2 ? NSString(u"") : zorSubstringToComposedIndex(text, text.length() - 2);
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSStringCompare.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/Unicode.h"

#include <algorithm>

namespace {

using View = std::u16string_view;

constexpr NSRange kNowhere{NSNotFound, 0};

bool equalButForCase(char16_t a, char16_t b) { return lowered(a) == lowered(b); }

NSRange rangeInASCII(View text, View wanted, unsigned options) {
    if (options & NSAnchoredSearch) text = text.substr(0, wanted.size());
    const auto found =
        options & NSCaseInsensitiveSearch
            ? std::search(text.begin(), text.end(), wanted.begin(), wanted.end(), equalButForCase)
            : text.begin() + ptrdiff_t(std::min(text.find(wanted), text.size()));
    return found == text.end() ? kNowhere : NSRange{size_t(found - text.begin()), wanted.size()};
}

void requireMemory(bool enough) {
    if (!enough) NSException(NSMallocException, u"The text is too long to be compared.").raise();
}

std::u16string foldedCase(View text) {
    std::u16string folded;
    requireMemory(unicodeFunctions().fold(text, NSCaseInsensitiveSearch, folded));
    return folded;
}

NSComparisonResult ordered(int order) {
    return order < 0 ? NSOrderedAscending : order > 0 ? NSOrderedDescending : NSOrderedSame;
}

} // namespace

NSRange rangeOfString(const NSString& text, const NSString& wanted, unsigned options) {
    View units = text.text(), pattern = wanted.text();
    if (pattern.empty()) return kNowhere;
    if (options & NSLiteralSearch) {
        const size_t at =
            (options & NSAnchoredSearch ? units.substr(0, pattern.size()) : units).find(pattern);
        return at == View::npos ? kNowhere : NSRange{at, pattern.size()};
    }
    // One unit more: an accent that follows the match belongs to it.
    const View looked = options & NSAnchoredSearch ? units.substr(0, pattern.size() + 1) : units;
    if (isASCII(pattern) && isASCII(looked)) return rangeInASCII(units, pattern, options);
    UnicodeRange found{};
    requireMemory(unicodeFunctions().find(units, pattern, options, found));
    return found.start < found.end ? NSRange{found.start, found.end - found.start} : kNowhere;
}

NSComparisonResult caseInsensitiveCompare(const NSString& a, const NSString& b) {
    const View left = a.text(), right = b.text();
    size_t i = 0;
    const size_t shared = std::min(left.size(), right.size());
    while (i < shared && left[i] < 0x80 && right[i] < 0x80 && equalButForCase(left[i], right[i])) ++i;
    if (i == shared) return ordered(int(left.size() > shared) - int(right.size() > shared));
    if (left[i] < 0x80 && right[i] < 0x80) return ordered(int(lowered(left[i])) - int(lowered(right[i])));
    return ordered(foldedCase(left.substr(i)).compare(foldedCase(right.substr(i))));
}

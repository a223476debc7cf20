// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORComparisons.h"

#include "Platform/Foundation/UnitScan.h"

#include <algorithm>

namespace {

bool has(const NSString& text, const NSString& wanted, unsigned options) {
    return rangeOfString(text, wanted, options).location != NSNotFound;
}

} // namespace

bool zorCaseInsensitiveIsEqual(const NSString& text, const NSObject& other) {
    return text && is<NSString>(other) && caseInsensitiveCompare(text, as<NSString>(other)) == NSOrderedSame;
}

bool zorContainsString(const NSString& text, const NSString& wanted) {
    return has(text, wanted, NSLiteralSearch);
}

bool zorCaseInsensitiveContainsString(const NSString& text, const NSString& wanted) {
    return has(text, wanted, NSCaseInsensitiveSearch);
}

bool zorHasCaseInsensitivePrefix(const NSString& text, const NSString& prefix) {
    return has(text, prefix, NSAnchoredSearch | NSCaseInsensitiveSearch);
}

bool zorHasDiacriticPrefix(const NSString& text, const NSString& prefix) {
    return has(text, prefix, NSAnchoredSearch | NSDiacriticInsensitiveSearch | NSWidthInsensitiveSearch);
}

bool zorHasDiacriticInsensitivePrefix(const NSString& text, const NSString& prefix) {
    return has(text, prefix,
               NSAnchoredSearch | NSDiacriticInsensitiveSearch | NSWidthInsensitiveSearch |
                   NSCaseInsensitiveSearch);
}

bool zorHasCharacter(const NSString& text, char16_t unit, size_t index) {
    return index < text.length() && text.text()[index] == unit;
}

bool zorContainsCharacter(const NSString& text, char16_t unit) {
    return findUnit(text.text(), 0, [unit](char16_t c) { return c == unit; }) < text.length();
}

size_t zorCountOccurrencesOfCharacter(const NSString& text, char16_t unit) {
    return size_t(std::count(text.text().begin(), text.text().end(), unit));
}

bool zorMatchesCharacterSet(const NSString& text, const NSCharacterSet& set) {
    return std::all_of(text.text().begin(), text.text().end(),
                       [&set](char16_t c) { return set.characterIsMember(c); });
}

NSComparisonResult zorCompareForDisplay(const NSString& text, const NSString& other) {
    return localizedNumericCaseInsensitiveCompare(text, other);
}

NSComparisonResult zorCompareLength(const NSString& text, const NSString& other) {
    if (text.length() == other.length()) return NSOrderedSame;
    return text.length() < other.length() ? NSOrderedAscending : NSOrderedDescending;
}

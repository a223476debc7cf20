// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/Collation.h"
#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/NSStringCompare.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace {

using View = std::u16string_view;

// The user's, without the character set and variant.
std::string collationLocale() {
    std::string_view locale;
    for (const char* name : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        const char* value = getenv(name);
        if (locale.empty() && value) locale = value;
    }
    locale = locale.substr(0, locale.find_first_of(".@"));
    return locale == "C" || locale == "POSIX" ? "" : std::string(locale);
}

// Other languages have rules of their own even for the plain letters.
bool hasPlainOrder(std::string_view locale) {
    return locale.empty() || locale == "en" || locale.starts_with("en_");
}

// Letters and digits of ASCII, at most as many as the library takes for one number.
bool isPlain(View text) {
    return text.size() <= 254 &&
           std::all_of(text.begin(), text.end(), [](char16_t c) { return isDigit(c) || isLetter(c); });
}

// Takes the number at the front off, without its leading zeros.
View takeNumber(View& text) {
    const size_t end = size_t(std::find_if_not(text.begin(), text.end(), isDigit) - text.begin());
    View number = text.substr(0, end);
    text.remove_prefix(end);
    return number.substr(std::min(number.find_first_not_of(u'0'), number.size()));
}

int comparePlain(View a, View b) {
    while (!a.empty() && !b.empty()) {
        if (isDigit(a[0]) && isDigit(b[0])) {
            const View left = takeNumber(a), right = takeNumber(b);
            if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
            if (const int order = left.compare(right)) return order;
            continue;
        }
        if (const int order = int(lowered(a[0])) - int(lowered(b[0]))) return order; // digits before letters
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return int(!a.empty()) - int(!b.empty());
}

int compareByModule(View a, View b, const std::string& locale) {
    static const ModuleEntry<CollationModuleEntry> module("Collation");
    if (!module.get()) NSException(NSGenericException, module.why()).raise();
    return module.get()(a, b, locale.c_str());
}

} // namespace

NSComparisonResult localizedNumericCaseInsensitiveCompare(const NSString& a, const NSString& b) {
    const View left = a.text(), right = b.text();
    if (left == right) return NSOrderedSame;
    const std::string locale = collationLocale();
    const bool plain = hasPlainOrder(locale) && isPlain(left) && isPlain(right);
    const int order = plain ? comparePlain(left, right) : compareByModule(left, right, locale);
    return order < 0 ? NSOrderedAscending : order > 0 ? NSOrderedDescending : NSOrderedSame;
}

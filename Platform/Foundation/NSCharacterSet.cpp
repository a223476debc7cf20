// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSCharacterSet.h"

#include "Platform/Foundation/UnicodeText.h"

NSCharacterSet NSCharacterSet::characterSetWithCharactersInString(const NSString& text) {
    auto units = std::make_shared<Units>();
    const std::u16string& members = text.text();
    for (size_t i = 0; i < members.size(); ++i) {
        const bool pair =
            isHighSurrogate(members[i]) && i + 1 < members.size() && isLowSurrogate(members[i + 1]);
        if (pair) {
            ++i;
        } else {
            units->set(members[i]);
        }
    }
    return NSCharacterSet(std::move(units));
}

NSCharacterSet NSCharacterSet::characterSetWithRange(char16_t first, size_t count) {
    auto units = std::make_shared<Units>();
    for (size_t unit = first; unit < units->size() && unit - first < count; ++unit) units->set(unit);
    return NSCharacterSet(std::move(units));
}

NSCharacterSet NSCharacterSet::whitespaceAndNewlineCharacterSet() {
    static const NSCharacterSet set = characterSetWithCharactersInString(
        u"\t\n\v\f\r "
        u"\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u200B"
        u"\u2028\u2029\u202F\u205F\u3000");
    return set;
}

NSCharacterSet NSCharacterSet::invertedSet() const {
    return NSCharacterSet(std::make_shared<Units>(~*units_));
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSStringComposition.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/Unicode.h"

namespace {

// Characters below the first combining mark join nothing.
bool isNeverComposed(char16_t unit) { return unit < 0x300; }

bool surelyParted(std::u16string_view text, size_t index) {
    return index == 0 || index == text.size() ||
           (isNeverComposed(text[index - 1]) && isNeverComposed(text[index]));
}

} // namespace

NSRange rangeOfComposedCharacterSequenceAtIndex(const NSString& text, size_t index) {
    const std::u16string& units = text.text();
    if (index >= units.size()) {
        NSException(
            NSRangeException,
            stringWithFormat("The index %lu is out of bounds of a text of length %lu.", index, units.size()))
            .raise();
    }
    const bool isBreak = units[index] == u'\r' || units[index] == u'\n';
    if (isBreak || (surelyParted(units, index) && surelyParted(units, index + 1))) return {index, 1};
    const UnicodeRange cluster = unicodeFunctions().cluster(units, index);
    return {cluster.start, cluster.end - cluster.start};
}

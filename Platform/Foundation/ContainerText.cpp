// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ContainerText.h"

#include "Platform/Foundation/ASCII.h"

#include <algorithm>

namespace {

bool isPlain(std::u16string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char16_t c) { return isLetter(c) || isDigit(c); });
}

char16_t escapeLetter(char16_t c) {
    switch (c) {
    case u'\a': return u'a';
    case u'\b': return u'b';
    case u'\t': return u't';
    case u'\n': return u'n';
    case u'\v': return u'v';
    case u'\f': return u'f';
    case u'\r': return u'r';
    case u'"':
    case u'\\': return c;
    default: return 0;
    }
}

void appendQuoted(std::u16string& out, std::u16string_view text) {
    static constexpr char16_t digits[] = u"0123456789abcdef";
    out.push_back(u'"');
    for (char16_t c : text) {
        if (char16_t letter = escapeLetter(c)) {
            out.append({u'\\', letter});
        } else if (c >= 0x80) {
            out.append(
                {u'\\', u'U', digits[c >> 12], digits[c >> 8 & 15], digits[c >> 4 & 15], digits[c & 15]});
        } else if (c < 0x20 || c == 0x7F) {
            out.append({u'\\', digits[c >> 6], digits[c >> 3 & 7], digits[c & 7]});
        } else {
            out.push_back(c);
        }
    }
    out.push_back(u'"');
}

} // namespace

void appendIndent(std::u16string& out, unsigned level) { out.append(size_t(level) * 4, u' '); }

void appendElementText(std::u16string& out, const NSObject& element, unsigned level) {
    const bool isContainer = element.isKindOf(NSKind::array) || element.isKindOf(NSKind::dictionary);
    if (isContainer) appendIndent(out, level + 1);
    std::u16string text = element.body()->description(level + 1);
    if (isContainer || element.isKindOf(NSKind::data) || isPlain(text)) {
        out += text;
    } else {
        appendQuoted(out, text);
    }
}

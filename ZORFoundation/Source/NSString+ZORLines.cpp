// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/UnitScan.h"
#include "ZORFoundation/Source/NSString+ZORTextMunging.h"

namespace {

using View = std::u16string_view;

bool endsLine(char16_t c) { return (c == u'\n') | (c == u'\r') | (c == u'\u0085') | ((c & ~1) == u'\u2028'); }

bool isCarriageReturn(char16_t c) { return c == u'\r'; }

// The length of the line end at `at`.
size_t breakLength(View text, size_t at) {
    return text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1;
}

} // namespace

NSArray zorComponentsSeparatedByLineSeparators(const NSString& text) {
    const View units = text.text();
    std::vector<NSObject> lines;
    for (size_t start = 0; start < units.size();) {
        const size_t end = findUnit(units, start, endsLine);
        lines.push_back(NSString(units.substr(start, end - start)));
        start = end == units.size() ? end : end + breakLength(units, end);
    }
    return NSArray(std::move(lines));
}

NSString zorStringByNormalizingLineBreaks(const NSString& text) {
    const View units = text.text();
    size_t end = findUnit(units, 0, isCarriageReturn);
    if (end == units.size()) return text;
    std::u16string out;
    out.reserve(units.size());
    size_t start = 0;
    for (; end < units.size(); end = findUnit(units, start, isCarriageReturn)) {
        out.append(units, start, end - start).push_back(u'\n');
        start = end + breakLength(units, end);
    }
    out.append(units, start);
    return out;
}

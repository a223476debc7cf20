// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/XMLPropertyListScanner.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>

namespace {

using View = std::u16string_view;

constexpr View kCDATAStart = u"<![CDATA[", kCDATAEnd = u"]]>";

bool isQuote(char16_t c) { return c == u'"' || c == u'\''; }

struct Entity {
    View name;
    char16_t character;
};

constexpr Entity kEntities[] = {
    {u"lt", u'<'}, {u"gt", u'>'}, {u"amp", u'&'}, {u"apos", u'\''}, {u"quot", u'"'}};

// The value of the digits, or a value above U+10FFFF when they are none or too many.
char32_t codePoint(View digits) {
    constexpr char32_t none = 0x110000;
    const bool isHex = !digits.empty() && digits[0] == u'x';
    if (isHex) digits.remove_prefix(1);
    const char32_t base = isHex ? 16 : 10;
    char32_t value = 0;
    for (char16_t c : digits) {
        const int digit = hexDigit(c);
        if (digit < 0 || char32_t(digit) >= base) return none;
        value = std::min<char32_t>(value * base + char32_t(digit), none);
    }
    return digits.empty() ? none : value;
}

} // namespace

bool XMLPropertyListScanner::fail(const NSString& what) {
    problem_ = stringWithFormat("%@ at line %lu", what, lineNumber(text_, at_));
    return false;
}

bool XMLPropertyListScanner::unexpected() {
    problem_ = unexpectedCharacter(text_, at_);
    return false;
}

// Behind the terminator; without one, to the end.
bool XMLPropertyListScanner::skipPast(View terminator) {
    size_t found = text_.find(terminator, at_);
    at_ = found == View::npos ? text_.size() : found + terminator.size();
    return found != View::npos || unexpected();
}

void XMLPropertyListScanner::skipSpaces() {
    while (at_ < text_.size() && isSpace(text_[at_])) ++at_;
}

bool XMLPropertyListScanner::skipToTag() {
    for (;;) {
        skipSpaces();
        if (!startsWith(u"<")) return unexpected();
        if (!startsWith(u"<!--")) return true;
        at_ += 4;
        if (!skipPast(u"-->")) return false;
    }
}

bool XMLPropertyListScanner::skipProlog() {
    bool hasDocumentType = false;
    while (skipToTag()) {
        if (startsWith(u"<?")) {
            if (!skipPast(u"?>")) return false;
        } else if (startsWith(u"<!DOCTYPE") && !hasDocumentType) {
            hasDocumentType = true;
            if (!skipDocumentType()) return false;
        } else {
            return true;
        }
    }
    return false;
}

bool XMLPropertyListScanner::skipDocumentType() {
    while (at_ < text_.size()) {
        char16_t c = text_[at_++];
        if (c == u'>') return true;
        if (c == u'[' && !skipInternalSubset()) return false;
        if (isQuote(c) && !skipPast(View(&c, 1))) return false;
    }
    return unexpected();
}

bool XMLPropertyListScanner::skipInternalSubset() {
    while (at_ < text_.size()) {
        if (startsWith(u"<!--")) {
            at_ += 4;
            if (!skipPast(u"-->")) return false;
            continue;
        }
        if (startsWith(u"<?")) {
            if (!skipPast(u"?>")) return false;
            continue;
        }
        char16_t c = text_[at_++];
        if (c == u']') return true;
        if (isQuote(c) && !skipPast(View(&c, 1))) return false;
    }
    return unexpected();
}

bool XMLPropertyListScanner::startTag(Tag& tag) {
    size_t start = ++at_;
    while (at_ < text_.size() && !isSpace(text_[at_]) && text_[at_] != u'/' && text_[at_] != u'>') ++at_;
    tag.name = text_.substr(start, at_ - start);
    while (at_ < text_.size()) {
        char16_t c = text_[at_++];
        if (c == u'>') {
            tag.isEmpty = text_[at_ - 2] == u'/';
            return true;
        }
        if (isQuote(c) && !skipPast(View(&c, 1))) return false;
    }
    return unexpected();
}

bool XMLPropertyListScanner::endTag(View name) {
    const size_t start = at_;
    if (isEndTag() && text_.substr(at_ + 2, name.size()) == name) {
        at_ += 2 + name.size();
        skipSpaces();
        if (startsWith(u">")) {
            ++at_;
            return true;
        }
    }
    at_ = start;
    return fail(u"No end tag of <" + NSString(name) + u">");
}

View XMLPropertyListScanner::rawText() {
    const size_t start = at_;
    at_ = std::min(text_.find(u'<', at_), text_.size());
    return text_.substr(start, at_ - start);
}

bool XMLPropertyListScanner::elementText(View name, std::u16string& text) {
    while (at_ < text_.size()) {
        const size_t start = at_;
        while (at_ < text_.size() && text_[at_] != u'<' && text_[at_] != u'&') ++at_;
        text += text_.substr(start, at_ - start);
        if (startsWith(kCDATAStart)) {
            const size_t begin = at_ + kCDATAStart.size();
            if (!skipPast(kCDATAEnd)) return false;
            text += text_.substr(begin, at_ - kCDATAEnd.size() - begin);
        } else if (startsWith(u"&")) {
            if (!reference(text)) return false;
        } else {
            return endTag(name);
        }
    }
    return unexpected();
}

// "&name;", "&#10;" or "&#xA;".
bool XMLPropertyListScanner::reference(std::u16string& text) {
    constexpr size_t longest = 32;
    size_t length = text_.substr(at_, longest).find(u';');
    if (length == View::npos) return fail(u"Unfinished entity");
    View name = text_.substr(at_ + 1, length - 1);
    if (!name.empty() && name[0] == u'#') {
        char32_t c = codePoint(name.substr(1));
        if (c > 0x10FFFF) return fail(u"No character: &" + NSString(name) + u";");
        appendCodePoint(text, c);
    } else {
        auto* entity = std::find_if(std::begin(kEntities), std::end(kEntities),
                                    [&](const Entity& known) { return known.name == name; });
        if (entity == std::end(kEntities)) return fail(u"Unknown entity &" + NSString(name) + u";");
        text.push_back(entity->character);
    }
    at_ += length + 1;
    return true;
}

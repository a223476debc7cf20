// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/StringFormat.h"

#include <algorithm>

namespace {

using View = std::u16string_view;

bool isBlank(char16_t c) { return isSpace(c) || c == u'\u2028' || c == u'\u2029'; }
bool isQuote(char16_t c) { return c == u'"' || c == u'\''; }
bool isOctalDigit(char16_t c) { return c >= u'0' && c <= u'7'; }

bool isUnquoted(char16_t c) { return isLetter(c) || isDigit(c) || View(u"_$/:.-").find(c) != View::npos; }

char16_t NEXTSTEPCharacter(unsigned byte) {
    return byte < 0x80 ? char16_t(byte) : upperHalf(NSNEXTSTEPStringEncoding)[byte - 0x80];
}

class OldStyleParser {
public:
    explicit OldStyleParser(View text) : text_(text) {}

    NSObject root();
    const NSString& problem() const { return problem_; }

private:
    bool isAtEnd() const { return at_ >= text_.size(); }
    bool isAt(char16_t c) const { return !isAtEnd() && text_[at_] == c; }
    // Takes the character when it is here.
    bool take(char16_t c);
    void skipSpaces();
    NSObject fail(std::string_view what);

    NSObject object(unsigned depth);
    NSObject array(unsigned depth);
    // Up to `terminator`, which is taken; without one, up to the end of the text.
    NSObject entries(unsigned depth, char16_t terminator);
    NSObject data();
    NSString string();
    NSString quotedString();
    void escape(std::u16string& out);

    const View text_;
    size_t at_ = 0;
    NSString problem_;
};

bool OldStyleParser::take(char16_t c) {
    if (!isAt(c)) return false;
    ++at_;
    return true;
}

// White space and comments; a comment that is not closed is the rest of the text.
void OldStyleParser::skipSpaces() {
    while (!isAtEnd()) {
        View start = text_.substr(at_, 2);
        if (isBlank(start[0])) {
            ++at_;
        } else if (start == u"//") {
            at_ = std::min(text_.find_first_of(u"\n\r\u2028\u2029", at_), text_.size());
        } else if (start == u"/*") {
            size_t end = text_.find(u"*/", at_ + 2);
            at_ = end == View::npos ? text_.size() : end + 2;
        } else {
            return;
        }
    }
}

NSObject OldStyleParser::fail(std::string_view what) {
    problem_ = stringWithFormat("%@ at line %lu", NSString::fromUTF8(what), lineNumber(text_, at_));
    return {};
}

NSObject OldStyleParser::root() {
    skipSpaces();
    if (isAtEnd()) return NSDictionary::dictionary();
    const size_t start = at_;
    NSObject list = object(0);
    if (!list) return {};
    skipSpaces();
    if (isAtEnd()) return list;
    if (!is<NSString>(list)) return fail("Junk after plist");
    at_ = start;
    return entries(0, 0);
}

// The object that is here, inside `depth` containers.
NSObject OldStyleParser::object(unsigned depth) {
    const bool isArray = isAt(u'(');
    if (isArray || isAt(u'{')) {
        if (depth >= kPropertyListDepthLimit) return fail("Too many nested containers");
        ++at_;
        return isArray ? array(depth + 1) : entries(depth + 1, u'}');
    }
    return take(u'<') ? data() : string();
}

NSObject OldStyleParser::array(unsigned depth) {
    std::vector<NSObject> objects;
    for (;;) {
        skipSpaces();
        if (take(u')')) return NSArray(std::move(objects));
        NSObject element = object(depth);
        if (!element) return {};
        objects.push_back(std::move(element));
        skipSpaces();
        if (!take(u',') && !isAt(u')')) return fail("No ',' or ')' in an array");
    }
}

NSObject OldStyleParser::entries(unsigned depth, char16_t terminator) {
    NSMutableDictionary dictionary;
    for (;;) {
        skipSpaces();
        if (terminator ? take(terminator) : isAtEnd()) return std::move(dictionary).copy();
        NSString key = string();
        if (!key) return {};
        NSObject value = key;
        skipSpaces();
        if (take(u'=')) {
            skipSpaces();
            value = object(depth);
            if (!value) return {};
            skipSpaces();
        }
        if (!take(u';')) return fail("No ';' behind a dictionary's entry");
        dictionary.setObject(value, key);
    }
}

NSObject OldStyleParser::data() {
    std::string bytes;
    for (;;) {
        while (!isAtEnd() && isBlank(text_[at_])) ++at_;
        if (take(u'>')) return NSData(std::move(bytes));
        int high = isAtEnd() ? -1 : hexDigit(text_[at_]);
        int low = high < 0 || at_ + 1 >= text_.size() ? -1 : hexDigit(text_[at_ + 1]);
        if (low < 0) return fail("No pair of hexadecimal digits in data");
        bytes.push_back(char(high << 4 | low));
        at_ += 2;
    }
}

NSString OldStyleParser::string() {
    if (!isAtEnd() && isQuote(text_[at_])) return quotedString();
    const size_t start = at_;
    while (!isAtEnd() && isUnquoted(text_[at_])) ++at_;
    if (at_ > start) return text_.substr(start, at_ - start);
    problem_ = unexpectedCharacter(text_, at_);
    return nullptr;
}

NSString OldStyleParser::quotedString() {
    const size_t start = at_;
    const char16_t quote = text_[at_++];
    std::u16string out;
    while (!isAtEnd()) {
        const size_t run = at_;
        while (!isAtEnd() && text_[at_] != quote && text_[at_] != u'\\') ++at_;
        out += text_.substr(run, at_ - run);
        if (take(quote)) return out;
        if (take(u'\\') && !isAtEnd()) escape(out);
    }
    at_ = start;
    fail("A quoted string without end");
    return nullptr;
}

// What stands behind a backslash.
void OldStyleParser::escape(std::u16string& out) {
    constexpr View letters = u"abfnrtv", characters = u"\a\b\f\n\r\t\v";
    const char16_t c = text_[at_];
    if (isOctalDigit(c)) {
        unsigned byte = 0;
        for (int i = 0; i < 3 && !isAtEnd() && isOctalDigit(text_[at_]); ++i)
            byte = byte * 8 + (text_[at_++] - u'0');
        out.push_back(NEXTSTEPCharacter(byte & 0xFF));
        return;
    }
    ++at_;
    if (c == u'U' && !isAtEnd() && hexDigit(text_[at_]) >= 0) {
        unsigned unit = 0;
        for (int i = 0; i < 4 && !isAtEnd() && hexDigit(text_[at_]) >= 0; ++i) {
            unit = unit << 4 | unsigned(hexDigit(text_[at_++]));
        }
        out.push_back(char16_t(unit));
        return;
    }
    const size_t letter = letters.find(c);
    out.push_back(letter == View::npos ? c : characters[letter]);
}

} // namespace

NSObject readOldStylePropertyList(View text, NSString& problem) {
    OldStyleParser parser(text);
    NSObject list = parser.root();
    if (!list) problem = parser.problem();
    return list;
}

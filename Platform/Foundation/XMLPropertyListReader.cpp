// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/PropertyListFormats.h"
#include "Platform/Foundation/XMLPropertyListScanner.h"

#include "Platform/Foundation/Base64.h"
#include <algorithm>
#include <charconv>
#include <limits>

namespace {

using View = std::u16string_view;

View withoutLeadingSpaces(View text) {
    while (!text.empty() && isSpace(text[0])) text.remove_prefix(1);
    return text;
}

// White space, sign, white space, digits or "0x" and hexadecimal digits; nil for anything else.
NSNumber integerNumber(View text) {
    text = withoutLeadingSpaces(text);
    const bool isNegative = !text.empty() && text[0] == u'-';
    if (!text.empty() && (text[0] == u'-' || text[0] == u'+')) text = withoutLeadingSpaces(text.substr(1));
    const bool isHex = text.size() >= 2 && text[0] == u'0' && lowered(text[1]) == u'x';
    if (isHex) text.remove_prefix(2);
    const uint64_t base = isHex ? 16 : 10;
    const uint64_t limit = isNegative ? uint64_t(1) << 63 : UINT64_MAX;
    if (text.empty()) return {};
    uint64_t value = 0;
    for (char16_t c : text) {
        const int digit = hexDigit(c);
        if (digit < 0 || uint64_t(digit) >= base || value > (limit - uint64_t(digit)) / base) return {};
        value = value * base + uint64_t(digit);
    }
    return isNegative ? NSNumber::withInteger(int64_t(0 - value)) : NSNumber::withUnsignedInteger(value);
}

// A decimal number, all of it and in the range of numbers; nil for anything else.
NSNumber decimalNumber(View text) {
    if (!text.empty() && text[0] == u'+') text.remove_prefix(1);
    std::string digits;
    for (char16_t c : text) {
        if (!isDigit(c) && c != u'.' && lowered(c) != u'e' && c != u'+' && c != u'-') return {};
        digits.push_back(char(c));
    }
    double value = 0;
    const char* last = digits.data() + digits.size();
    auto [end, error] = std::from_chars(digits.data(), last, value);
    return end == last && error == std::errc() ? NSNumber::withDouble(value) : NSNumber();
}

NSNumber realNumber(View text) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (equalIgnoringCase(text, u"nan"))
        return NSNumber::withDouble(std::numeric_limits<double>::quiet_NaN());
    if (equalIgnoringCase(text, u"infinity") || equalIgnoringCase(text, u"+infinity"))
        return NSNumber::withDouble(infinity);
    if (equalIgnoringCase(text, u"-infinity")) return NSNumber::withDouble(-infinity);
    return decimalNumber(text);
}

// "2001-01-01T00:00:00Z", perhaps with "-" before the year; nil for anything else.
NSDate date(View text) {
    constexpr View form = u"0000-00-00T00:00:00Z";
    const bool isBeforeZero = !text.empty() && text[0] == u'-';
    if (isBeforeZero) text.remove_prefix(1);
    if (text.size() != form.size()) return {};
    int fields[6] = {};
    size_t field = 0;
    for (size_t i = 0; i < form.size(); ++i) {
        if (form[i] == u'0') {
            if (!isDigit(text[i])) return {};
            fields[field] = fields[field] * 10 + (text[i] - u'0');
        } else {
            if (text[i] != form[i]) return {};
            ++field;
        }
    }
    return NSDate(referenceTime(
        {isBeforeZero ? -fields[0] : fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]}));
}

// Whole groups of four; other characters are passed over, but those beyond ASCII, for which the data is nil.
NSData base64Data(View text) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 3);
    unsigned group = 0, count = 0, padding = 0;
    for (char16_t c : text) {
        if (c >= 0x80) return {};
        const int value = c == u'=' ? 0 : base64Digit(c);
        if (value < 0) continue;
        padding = c == u'=' ? padding + 1 : 0;
        group = group << 6 | unsigned(value);
        if (++count % 4 != 0) continue;
        const char triple[] = {char(group >> 16 & 0xFF), char(group >> 8 & 0xFF), char(group & 0xFF)};
        bytes.append(triple, padding == 0 ? 3 : padding == 1 ? 2 : 1);
    }
    return NSData(std::move(bytes));
}

// A dictionary that is an identifier in disguise, or the dictionary itself.
NSObject unmasked(const NSDictionary& dictionary) {
    NSNumber number = dictionary.count() == 1 ? dictionary.get<NSNumber>(NSString(kUIDKey)) : NSNumber();
    const bool isInteger = number && !number.isBoolean() && !number.isFloating() && !number.isUnsigned();
    if (!isInteger || number.integerValue() < 0 || number.integerValue() > int64_t(UINT32_MAX))
        return dictionary;
    return CFKeyedArchiverUID(uint32_t(number.integerValue()));
}

class XMLPropertyListParser {
public:
    explicit XMLPropertyListParser(View text) : scanner_(text) {}

    NSObject root();
    const NSString& problem() const { return scanner_.problem(); }

private:
    using Tag = XMLPropertyListScanner::Tag;

    NSObject fail(const NSString& what) {
        scanner_.fail(what);
        return {};
    }

    NSObject element(const Tag& tag, unsigned depth);
    NSObject nextElement(unsigned depth);
    NSObject array(unsigned depth);
    NSObject dictionary(unsigned depth);
    NSObject scalar(const Tag& tag);
    NSObject dataElement();

    XMLPropertyListScanner scanner_;
};

// What follows the root is not looked at.
NSObject XMLPropertyListParser::root() {
    Tag tag;
    if (!scanner_.skipProlog() || !scanner_.startTag(tag)) return {};
    if (tag.name != u"plist") return element(tag, 0);
    if (tag.isEmpty) return fail(u"No object in <plist>");
    if (!scanner_.skipToTag()) return {};
    if (scanner_.isEndTag()) return fail(u"No object in <plist>");
    NSObject object = nextElement(0);
    if (!object || !scanner_.skipToTag()) return {};
    if (!scanner_.isEndTag()) return fail(u"More than one object in <plist>");
    return scanner_.endTag(u"plist") ? object : NSObject();
}

NSObject XMLPropertyListParser::nextElement(unsigned depth) {
    Tag tag;
    return scanner_.startTag(tag) ? element(tag, depth) : NSObject();
}

// The object whose start tag was read, inside `depth` containers.
NSObject XMLPropertyListParser::element(const Tag& tag, unsigned depth) {
    const bool isArray = tag.name == u"array";
    if (!isArray && tag.name != u"dict") return scalar(tag);
    if (depth >= kPropertyListDepthLimit) return fail(u"Too many nested containers");
    if (tag.isEmpty) return isArray ? NSObject(NSArray(std::vector<NSObject>())) : NSDictionary::dictionary();
    return isArray ? array(depth + 1) : dictionary(depth + 1);
}

NSObject XMLPropertyListParser::array(unsigned depth) {
    std::vector<NSObject> objects;
    while (scanner_.skipToTag()) {
        if (scanner_.isEndTag()) return scanner_.endTag(u"array") ? NSArray(std::move(objects)) : NSObject();
        NSObject object = nextElement(depth);
        if (!object) return {};
        objects.push_back(std::move(object));
    }
    return {};
}

NSObject XMLPropertyListParser::dictionary(unsigned depth) {
    NSMutableDictionary entries;
    while (scanner_.skipToTag()) {
        if (scanner_.isEndTag())
            return scanner_.endTag(u"dict") ? unmasked(std::move(entries).copy()) : NSObject();
        Tag tag;
        std::u16string key;
        if (!scanner_.startTag(tag)) return {};
        if (tag.name != u"key") return fail(u"No <key> before a value in <dict>");
        if (!tag.isEmpty && !scanner_.elementText(tag.name, key)) return {};
        if (!scanner_.skipToTag()) return {};
        if (scanner_.isEndTag()) return fail(u"No value for a key in <dict>");
        NSObject object = nextElement(depth);
        if (!object) return {};
        entries.setObject(object, NSString(std::move(key)));
    }
    return {};
}

NSObject XMLPropertyListParser::dataElement() {
    NSData data = base64Data(scanner_.rawText());
    if (!data) return fail(u"No base64 in <data>");
    return scanner_.endTag(u"data") ? data : NSObject();
}

NSObject XMLPropertyListParser::scalar(const Tag& tag) {
    const bool isString = tag.name == u"string", isTrue = tag.name == u"true", isFalse = tag.name == u"false",
               isInteger = tag.name == u"integer", isReal = tag.name == u"real", isDate = tag.name == u"date",
               isData = tag.name == u"data";
    if (!isString && !isTrue && !isFalse && !isInteger && !isReal && !isDate && !isData) {
        return fail(u"Unknown tag <" + NSString(tag.name) + u">");
    }
    if (isTrue || isFalse) {
        return tag.isEmpty || scanner_.endTag(tag.name) ? NSNumber::withBool(isTrue) : NSObject();
    }
    if (tag.isEmpty && !isString) return fail(u"Empty <" + NSString(tag.name) + u">");
    if (isData) return dataElement();
    std::u16string text;
    if (!tag.isEmpty && !scanner_.elementText(tag.name, text)) return {};
    if (isString) return NSString(std::move(text));
    NSObject object = isInteger ? NSObject(integerNumber(text))
                      : isReal  ? NSObject(realNumber(text))
                                : date(text);
    return object ? object : fail(u"No value of <" + NSString(tag.name) + u">");
}

} // namespace

NSObject readXMLPropertyList(View text, NSString& problem) {
    XMLPropertyListParser parser(text);
    NSObject list = parser.root();
    if (!list) problem = parser.problem();
    return list;
}

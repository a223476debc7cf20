// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSString.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/UnicodeText.h"

#include <charconv>
#include <cstdint>
#include <functional>
#include <limits>

namespace {

class StringBody final : public ObjectBody {
public:
    explicit StringBody(std::u16string text) : ObjectBody(kKind), text(std::move(text)) {}

    std::string_view className() const override { return "NSString"; }
    bool isEqual(const ObjectBody& other) const override {
        return text == static_cast<const StringBody&>(other).text;
    }
    size_t hash() const override { return std::hash<std::u16string_view>()(text); }
    std::u16string description(unsigned) const override { return text; }

    static constexpr NSKind kKind = NSKind::string;
    const std::u16string text;
};

std::u16string_view withoutLeadingWhiteSpace(std::u16string_view text) {
    size_t start = 0;
    while (start < text.size() && isSpace(text[start])) ++start;
    return text.substr(start);
}

} // namespace

NSString::NSString(std::u16string text) : NSObject(new StringBody(std::move(text))) {}

NSString NSString::fromUTF8(std::string_view bytes) { return NSString(::fromUTF8(bytes)); }

const std::u16string& NSString::text() const {
    static const std::u16string empty;
    return body() ? static_cast<const StringBody*>(body())->text : empty;
}

std::string NSString::utf8() const { return toUTF8(text()); }

bool NSString::boolValue() const {
    std::u16string_view rest = withoutLeadingWhiteSpace(text());
    if (!rest.empty() && (rest[0] == u'+' || rest[0] == u'-')) rest.remove_prefix(1);
    while (!rest.empty() && rest[0] == u'0') rest.remove_prefix(1);
    if (rest.empty()) return false;
    char16_t c = rest[0];
    return c == u'Y' || c == u'y' || c == u'T' || c == u't' || (c >= u'1' && c <= u'9');
}

int64_t NSString::integerValue() const {
    std::u16string_view rest = withoutLeadingWhiteSpace(text());
    bool negative = !rest.empty() && rest[0] == u'-';
    if (!rest.empty() && (rest[0] == u'+' || rest[0] == u'-')) rest.remove_prefix(1);
    const uint64_t limit = negative ? uint64_t(INT64_MAX) + 1 : uint64_t(INT64_MAX);
    uint64_t value = 0;
    for (; !rest.empty() && isDigit(rest[0]); rest.remove_prefix(1)) {
        uint64_t digit = uint64_t(rest[0] - u'0');
        if (value > (limit - digit) / 10) return negative ? INT64_MIN : INT64_MAX;
        value = value * 10 + digit;
    }
    return negative ? int64_t(0 - value) : int64_t(value);
}

double NSString::doubleValue() const {
    std::u16string_view rest = withoutLeadingWhiteSpace(text());
    if (!rest.empty() && rest[0] == u'+') rest.remove_prefix(1);
    std::string digits; // the longest run that can be a number; "nan" and "inf" are not numbers here
    for (char16_t c : rest) {
        if (!isDigit(c) && c != u'.' && c != u'e' && c != u'E' && c != u'+' && c != u'-') break;
        digits.push_back(char(c));
    }
    double value = 0;
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc::result_out_of_range) {
        bool small = digits.find("e-") != std::string::npos || digits.find("E-") != std::string::npos;
        double magnitude = small ? 0.0 : std::numeric_limits<double>::infinity();
        return digits[0] == '-' ? -magnitude : magnitude;
    }
    return error == std::errc() ? value : 0.0;
}

NSString operator+(const NSString& a, const NSString& b) { return NSString(a.text() + b.text()); }

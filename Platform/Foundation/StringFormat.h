// SPDX-License-Identifier: Apache-2.0
//
// Format strings of the platform: printf's conversions, also with positions (`%2$@`) and widths among the
// arguments (`%*d`), `%@`, which prints an object's description, `%C` for a UTF-16 unit and `%S` for such
// text.
#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSString.h"

#include <concepts>
#include <initializer_list>
#include <variant>

// One argument of a format. Numbers are kept in their widest form; the conversion's own length (h, l, ll, L)
// cuts integers to its width.
class FormatArgument {
public:
    template <std::signed_integral T>
    FormatArgument(T value) : value_(static_cast<long long>(value)) {}
    template <std::unsigned_integral T>
    FormatArgument(T value) : value_(static_cast<unsigned long long>(value)) {}
    FormatArgument(double value) : value_(static_cast<long double>(value)) {}
    FormatArgument(long double value) : value_(value) {}
    FormatArgument(const char* value) : value_(value) {}
    FormatArgument(const void* value) : value_(value) {}
    FormatArgument(const NSObject& value) : value_(value) {}
    FormatArgument(const char16_t* value) : value_(NSObject(NSString(value))) {}

private:
    friend class Formatter;
    std::variant<long long, unsigned long long, long double, const char*, const void*, NSObject> value_;
};

// `format` is UTF-8. A conversion without its argument, or of another kind than its argument, prints "(null)"
// for objects and strings and 0 for numbers: a format must never be able to crash what reports a failure.
NSString formatString(std::string_view format, std::initializer_list<FormatArgument> arguments);

template <class... Arguments>
NSString stringWithFormat(std::string_view format, const Arguments&... arguments) {
    return formatString(format, {FormatArgument(arguments)...});
}

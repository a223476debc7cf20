// SPDX-License-Identifier: Apache-2.0
//
// A string value: UTF-16 units in which U+0000 and lone surrogates are units like any other. Lengths and
// indices count units.
#pragma once

#include "Platform/Foundation/NSObject.h"

#include <string>
#include <string_view>

class NSString : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::string;

    NSString() = default;
    NSString(std::nullptr_t) {}
    NSString(std::u16string text);
    NSString(std::u16string_view text) : NSString(std::u16string(text)) {}
    NSString(const char16_t* text) : NSString(std::u16string(text)) {}
    explicit NSString(const ObjectBody* body) : NSObject(body) {}

    // From UTF-8; malformed parts become U+FFFD.
    static NSString fromUTF8(std::string_view bytes);

    // "" for nil. The reference lives as long as a handle to the value does.
    const std::u16string& text() const;
    size_t length() const { return text().size(); }
    bool isEmpty() const { return text().empty(); }

    // Lone surrogates become U+FFFD.
    std::string utf8() const;

    // nil is equal to nothing, not even to nil.
    bool isEqualToString(const NSString& other) const {
        return body() && other.body() && text() == other.text();
    }

    // As the platform's typed readings of text: leading white space skipped, the rest as far as it makes
    // sense.
    bool boolValue() const;
    int64_t integerValue() const;
    double doubleValue() const;
};

NSString operator+(const NSString& a, const NSString& b);

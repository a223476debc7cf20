// SPDX-License-Identifier: Apache-2.0
//
// Bytes as the recipe of a property list that every program can hold: integers of 64 bits, finite numbers,
// whole seconds near our time, strings of characters that XML knows.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDate.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSNumber.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

class ListRecipe {
public:
    explicit ListRecipe(std::string_view bytes) : rest_(bytes) {}

    // An array of all that the bytes say.
    NSArray list() {
        std::vector<NSObject> elements;
        while (!rest_.empty()) elements.push_back(object(1));
        return NSArray(std::move(elements));
    }

    // True when an identifier of a keyed archiver is in the list, which is a dictionary in XML.
    bool hasIdentifiers() const { return hasIdentifiers_; }

private:
    static constexpr int kDeepest = 40;

    template <class T>
    T take() {
        T value{};
        const size_t length = std::min(sizeof value, rest_.size());
        std::memcpy(&value, rest_.data(), length);
        rest_.remove_prefix(length);
        return value;
    }

    std::string_view takeBytes() {
        const size_t length = take<uint8_t>();
        const std::string_view bytes = rest_.substr(0, length);
        rest_.remove_prefix(bytes.size());
        return bytes;
    }

    NSObject object(int depth) {
        switch (take<uint8_t>() % 12) {
        case 0: return NSNumber::withBool(take<uint8_t>() & 1);
        case 1: return NSNumber::withChar(take<int8_t>());
        case 2: return NSNumber::withShort(take<int16_t>());
        case 3: return NSNumber::withInteger(take<int64_t>());
        case 4: return NSNumber::withUnsignedInteger(take<uint64_t>());
        case 5: return NSNumber::withDouble(finite(take<double>()));
        case 6: return NSNumber::withFloat(float(take<int16_t>()) / 16);
        case 7: return NSDate(take<int32_t>() / 2);
        case 8: return NSData(std::string(takeBytes()));
        case 9: hasIdentifiers_ = true; return CFKeyedArchiverUID(take<uint32_t>());
        case 10: return depth < kDeepest ? container(depth + 1) : string();
        default: return string();
        }
    }

    static double finite(double number) { return std::isfinite(number) ? number : 0.1; }

    // A byte says how many there are, and its highest bit whether they have keys.
    NSObject container(int depth) {
        const uint8_t shape = take<uint8_t>();
        std::vector<NSObject> elements;
        NSMutableDictionary entries;
        for (int i = 0; i < (shape & 0x1F); ++i) {
            if (shape & 0x80) {
                const NSString key = string();
                entries.setObject(object(depth), key);
            } else {
                elements.push_back(object(depth));
            }
        }
        if (shape & 0x80) return std::move(entries).copy();
        return NSArray(std::move(elements));
    }

    // Bytes above 0x7F take another and stand for characters all over the first plane, or beyond it.
    NSString string() {
        std::u16string text;
        std::string_view bytes = takeBytes();
        for (size_t i = 0; i < bytes.size(); ++i) {
            const auto first = uint8_t(bytes[i]), second = uint8_t(i + 1 < bytes.size() ? bytes[i + 1] : 0);
            if (first >= 0x80) ++i;
            text += first < 0x80 ? plain(first) : other(char16_t(first << 9 | second << 1));
        }
        return NSString(std::move(text));
    }

    static std::u16string plain(uint8_t c) {
        const bool isAllowed = c >= 0x20 || c == '\t' || c == '\n';
        return {isAllowed ? char16_t(c) : u'&'};
    }

    static std::u16string other(char16_t c) {
        if (c >= 0xD800 && c < 0xE000)
            return {char16_t(0xD800 | (c & 0x3FF)), char16_t(0xDC00 | (c >> 3 & 0x3FF))};
        return {c < 0xA0 || c >= 0xFFFE ? u'\u2028' : c};
    }

    std::string_view rest_;
    bool hasIdentifiers_ = false;
};

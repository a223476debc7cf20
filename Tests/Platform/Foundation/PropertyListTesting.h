// SPDX-License-Identifier: Apache-2.0
//
// Bytes for the tests of property lists and archives, written as people read them.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSPropertyListSerialization.h"
#include "Platform/Foundation/NSString.h"

#include <string>
#include <string_view>

// The bytes of hexadecimal digits; blanks between them do not matter, and "text" in double quotes stands for
// itself.
inline std::string bytesOf(std::string_view notation) {
    auto value = [](char c) { return c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10; };
    std::string bytes;
    for (size_t i = 0; i < notation.size(); ++i) {
        if (notation[i] == ' ') continue;
        if (notation[i] == '"') {
            size_t end = notation.find('"', i + 1);
            bytes += notation.substr(i + 1, end - i - 1);
            i = end;
        } else {
            bytes.push_back(char(value(notation[i]) << 4 | value(notation[i + 1])));
            ++i;
        }
    }
    return bytes;
}

// For the messages of failing tests.
inline std::string hex(std::string_view bytes) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string out;
    for (char c : bytes) {
        out.append({digits[(unsigned char)(c) >> 4], digits[c & 15], ' '});
    }
    if (!out.empty()) out.pop_back();
    return out;
}

inline NSString str(const char16_t* text) { return text; }

// Arrays in one another, `depth` of them.
inline NSObject nestedArrays(unsigned depth) {
    NSArray array((std::vector<NSObject>()));
    for (unsigned i = 1; i < depth; ++i) array = NSArray(std::vector<NSObject>{array});
    return array;
}

inline NSString debugDescription(const NSError& error) {
    return error.userInfo().get<NSString>(NSString(NSDebugDescriptionErrorKey));
}

// SPDX-License-Identifier: Apache-2.0
//
// What the writer and the reader of non-keyed archives share: the head bytes of a typed stream and the
// classes that travel in it.
//
// A stream is a header and groups. A group is a string of type encodings, then the values one after another.
// Strings of encodings and names are written once and referred to afterwards; so are objects, classes and C
// strings, numbered together.
#pragma once

#include "Platform/Foundation/NSObject.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace TypedStream {

constexpr uint8_t kStreamerVersion = 4;
constexpr int64_t kSystemVersion = 1000;
constexpr std::string_view kLittleEndian = "streamtyped", kBigEndian = "typedstream";

// Every integer begins with one signed byte: the integer itself, or one of these.
enum Head : int8_t {
    kInteger16 = -127,
    kInteger32 = -126,
    kFloating = -125,
    kNew = -124,
    kNil = -123,
    kEndOfObject = -122,
    kInteger64 = -121,
    kSmallest =
        -110, // the smallest integer that is its own head; a reference to number n is n more than this
};

struct Class {
    std::string_view name;
    std::string_view superclass; // "" for the root
    int version;
    NSKind kind; // of what its instances are here
};

// Values are immutable here: what was mutable when it was archived comes back as its immutable counterpart.
constexpr Class kClasses[] = {
    {"NSObject", "", 0, NSKind::other},
    {"NSString", "NSObject", 1, NSKind::string},
    {"NSMutableString", "NSString", 1, NSKind::string},
    {"NSValue", "NSObject", 0, NSKind::geometry},
    {"NSNumber", "NSValue", 0, NSKind::number},
    {"NSArray", "NSObject", 0, NSKind::array},
    {"NSMutableArray", "NSArray", 0, NSKind::array},
    {"NSDictionary", "NSObject", 0, NSKind::dictionary},
    {"NSMutableDictionary", "NSDictionary", 0, NSKind::dictionary},
    {"NSData", "NSObject", 0, NSKind::data},
    {"NSMutableData", "NSData", 0, NSKind::data},
    {"NSDate", "NSObject", 0, NSKind::date},
    {"NSURL", "NSObject", 0, NSKind::url},
    {"NSNull", "NSObject", 0, NSKind::null},
    {"NSError", "NSObject", 0, NSKind::error},
};

// Null for classes that do not travel.
inline const Class* classNamed(std::string_view name) {
    auto* found = std::find_if(std::begin(kClasses), std::end(kClasses),
                               [name](const Class& c) { return c.name == name; });
    return found == std::end(kClasses) ? nullptr : found;
}

// The type encodings of the geometry values.
constexpr std::string_view kPointType = "{CGPoint=dd}", kSizeType = "{CGSize=dd}",
                           kRectType = "{CGRect={CGPoint=dd}{CGSize=dd}}", kRangeType = "{_NSRange=QQ}";

// The type encoding of so many raw bytes.
inline std::string dataType(size_t length) {
    std::string type = "[";
    return type.append(std::to_string(length)).append("c]");
}

} // namespace TypedStream

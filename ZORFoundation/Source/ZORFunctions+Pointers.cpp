// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/NSClass.h"
#include "Platform/Foundation/NSGeometry.h"
#include "ZORFoundation/Source/ZORFunctions.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

template <class T>
T valueAt(const void* pointer) {
    T value;
    memcpy(&value, pointer, sizeof value);
    return value;
}

template <class T>
NSString formatted(std::string_view format, const void* pointer) {
    return stringWithFormat(format, valueAt<T>(pointer));
}

NSString characterText(const void* pointer) {
    auto value = valueAt<signed char>(pointer);
    if (value == 1) return u"YES";
    if (value == 0) return u"NO";
    return stringWithFormat("'%c'", value);
}

// "[16c]": characters in place.
bool isCharacterArray(std::string_view encoding) {
    if (encoding.size() < 4 || encoding.front() != '[' || encoding.substr(encoding.size() - 2) != "c]")
        return false;
    std::string_view digits = encoding.substr(1, encoding.size() - 3);
    return std::all_of(digits.begin(), digits.end(), isDigit);
}

struct Encoding {
    std::string_view name;
    NSString (*text)(const void* pointer);
};

const Encoding kEncodings[] = {
    {"c", characterText},
    {"s", [](const void* p) { return formatted<short>("%hi", p); }},
    {"S", [](const void* p) { return formatted<unsigned short>("%hu", p); }},
    {"i", [](const void* p) { return formatted<int>("%i", p); }},
    {"I", [](const void* p) { return formatted<unsigned>("%u", p); }},
    {"q", [](const void* p) { return formatted<int64_t>("%li", p); }},
    {"Q", [](const void* p) { return formatted<uint64_t>("%lu", p); }},
    {"f", [](const void* p) { return stringWithFormat("%f", double(valueAt<float>(p))); }},
    {"d", [](const void* p) { return formatted<double>("%f", p); }},
    {"D", [](const void* p) { return formatted<long double>("%Lf", p); }},
    {":", [](const void* p) { return stringWithFormat("%s", valueAt<ZORSelector>(p).name); }},
    {"#", [](const void* p) { return NSString::fromUTF8(static_cast<const NSClass*>(p)->name()); }},
    {"^v", [](const void* p) { return formatted<const void*>("%p", p); }},
    {"*", [](const void* p) { return formatted<const char*>("%s", p); }},
    {"r*", [](const void* p) { return formatted<const char*>("%s", p); }},
    {"{_NSRange=QQ}", [](const void* p) { return NSStringFromRange(valueAt<NSRange>(p)); }},
    {"{CGPoint=dd}", [](const void* p) { return NSStringFromPoint(valueAt<NSPoint>(p)); }},
    {"{CGSize=dd}", [](const void* p) { return NSStringFromSize(valueAt<NSSize>(p)); }},
    {"{CGRect={CGPoint=dd}{CGSize=dd}}", [](const void* p) { return NSStringFromRect(valueAt<NSRect>(p)); }},
    {"^{__CFString=}",
     [](const void* p) { return stringWithFormat("%@", *static_cast<const NSObject*>(p)); }},
    {"r^{__CFString=}",
     [](const void* p) { return stringWithFormat("%@", *static_cast<const NSObject*>(p)); }},
    {"@", [](const void* p) { return stringWithFormat("%@", *static_cast<const NSObject*>(p)); }},
};

} // namespace

NSString ZORFunctions::stringFromPointer(const void* pointer, const char* typeEncoding) {
    for (const Encoding& encoding : kEncodings) {
        if (encoding.name == typeEncoding) return encoding.text(pointer);
    }
    if (isCharacterArray(typeEncoding)) return stringWithFormat("%s", static_cast<const char*>(pointer));
    assertionFailedForFile("ZORFoundation/Source/ZORFunctions", __LINE__, {ZORReceiver::Kind::classObject},
                           "stringFromPointer:typeEncoding:", "Unhandled type encoding: %s", typeEncoding);
}

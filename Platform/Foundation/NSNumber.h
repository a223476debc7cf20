// SPDX-License-Identifier: Apache-2.0
//
// A number value, which remembers of what C type it was made: booleans, integers and floating numbers print,
// archive and serialise differently.
#pragma once

#include "Platform/Foundation/NSObject.h"

class NSNumber : public NSObject {
public:
    static constexpr NSKind kKind = NSKind::number;

    // Unsigned types are kept as the next wider signed one, as the platform does, so that only numbers above
    // INT64_MAX are unsigned.
    enum class Type : uint8_t { boolean, int8, int16, int32, int64, uint64, float32, float64 };

    NSNumber() = default;
    explicit NSNumber(const ObjectBody* body) : NSObject(body) {}

    static NSNumber withBool(bool value);
    static NSNumber withChar(int8_t value);
    static NSNumber withShort(int16_t value);
    static NSNumber withInt(int32_t value);
    static NSNumber withInteger(int64_t value);
    static NSNumber withUnsignedInteger(uint64_t value);
    static NSNumber withFloat(float value);
    static NSNumber withDouble(double value);

    // int32 for nil, whose values are all zero.
    Type type() const;
    bool isBoolean() const { return body() && type() == Type::boolean; }
    bool isFloating() const { return type() == Type::float32 || type() == Type::float64; }
    bool isUnsigned() const { return type() == Type::uint64; }
    // The C type's encoding: c, s, i, q, Q, f or d.
    char objCType() const;

    bool boolValue() const;
    // Floating values are truncated and saturate; an unsigned value keeps its bits.
    int64_t integerValue() const;
    double doubleValue() const;
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSNumber.h"

#include "Platform/Foundation/NSString.h"
#include "Platform/Foundation/NumberText.h"

#include <bit>
#include <cmath>
#include <functional>

namespace {

using Type = NSNumber::Type;

class NumberBody final : public ObjectBody {
public:
    NumberBody(Type type, int64_t integer, double floating)
        : ObjectBody(NSKind::number), type(type), integer(integer), floating(floating) {}

    std::string_view className() const override { return "NSNumber"; }

    bool isFloating() const { return type == Type::float32 || type == Type::float64; }

    double asDouble() const {
        if (isFloating()) return floating;
        return type == Type::uint64 ? double(uint64_t(integer)) : double(integer);
    }

    bool isEqual(const ObjectBody& object) const override {
        const auto& other = static_cast<const NumberBody&>(object);
        if (isFloating() || other.isFloating()) return asDouble() == other.asDouble();
        return integer == other.integer && (type == Type::uint64) == (other.type == Type::uint64);
    }

    size_t hash() const override { return std::hash<double>()(asDouble()); }

    std::u16string description(unsigned) const override {
        if (type == Type::float64) return generalNumberText(floating, 16);
        if (type == Type::float32) return generalNumberText(floating, 7);
        std::string digits =
            type == Type::uint64 ? std::to_string(uint64_t(integer)) : std::to_string(integer);
        return std::u16string(digits.begin(), digits.end());
    }

    const Type type;
    const int64_t integer;
    const double floating;
};

NSNumber integerNumber(Type type, int64_t value) { return NSNumber(new NumberBody(type, value, 0)); }

const NumberBody& numberBody(const NSNumber& number) {
    static const NumberBody zero(Type::int32, 0, 0);
    return number ? *static_cast<const NumberBody*>(number.body()) : zero;
}

} // namespace

NSNumber NSNumber::withBool(bool value) { return integerNumber(Type::boolean, value); }
NSNumber NSNumber::withChar(int8_t value) { return integerNumber(Type::int8, value); }
NSNumber NSNumber::withShort(int16_t value) { return integerNumber(Type::int16, value); }
NSNumber NSNumber::withInt(int32_t value) { return integerNumber(Type::int32, value); }
NSNumber NSNumber::withInteger(int64_t value) { return integerNumber(Type::int64, value); }

NSNumber NSNumber::withUnsignedInteger(uint64_t value) {
    return integerNumber(value <= uint64_t(INT64_MAX) ? Type::int64 : Type::uint64, int64_t(value));
}

NSNumber NSNumber::withFloat(float value) {
    return NSNumber(new NumberBody(Type::float32, 0, double(value)));
}

NSNumber NSNumber::withDouble(double value) { return NSNumber(new NumberBody(Type::float64, 0, value)); }

NSNumber::Type NSNumber::type() const { return numberBody(*this).type; }

char NSNumber::objCType() const {
    switch (type()) {
    case Type::boolean:
    case Type::int8: return 'c';
    case Type::int16: return 's';
    case Type::int32: return 'i';
    case Type::int64: return 'q';
    case Type::uint64: return 'Q';
    case Type::float32: return 'f';
    case Type::float64: return 'd';
    }
    return 'q';
}

bool NSNumber::boolValue() const { return isFloating() ? doubleValue() != 0 : integerValue() != 0; }

int64_t NSNumber::integerValue() const {
    const NumberBody& number = numberBody(*this);
    if (!number.isFloating()) return number.integer;
    if (std::isnan(number.floating)) return 0;
    if (number.floating >= 0x1p63) return INT64_MAX;
    if (number.floating < -0x1p63) return INT64_MIN;
    return int64_t(number.floating);
}

double NSNumber::doubleValue() const { return numberBody(*this).asDouble(); }

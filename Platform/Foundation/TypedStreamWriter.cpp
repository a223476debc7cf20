// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/TypedStreamWriter.h"

#include <bit>
#include <cmath>

using namespace TypedStream;

TypedStreamWriter::TypedStreamWriter() {
    integer(kStreamerVersion);
    unsharedString(kLittleEndian);
    integer(kSystemVersion);
}

template <class Value>
void TypedStreamWriter::littleEndian(Value value) {
    for (unsigned i = 0; i < sizeof(Value); ++i) out_.push_back(char(value >> (8 * i)));
}

void TypedStreamWriter::integer(int64_t value) {
    if (value >= kSmallest && value <= INT8_MAX) {
        out_.push_back(char(value));
    } else if (value >= INT16_MIN && value <= INT16_MAX) {
        head(kInteger16);
        littleEndian(uint16_t(value));
    } else if (value >= INT32_MIN && value <= INT32_MAX) {
        head(kInteger32);
        littleEndian(uint32_t(value));
    } else {
        head(kInteger64);
        littleEndian(uint64_t(value));
    }
}

template <class Value>
void TypedStreamWriter::floatingValue(Value value) {
    using Bits = std::conditional_t<sizeof(Value) == 4, uint32_t, uint64_t>;
    const double wide = double(value);
    if (wide >= INT32_MIN && wide <= INT32_MAX && std::trunc(wide) == wide) {
        integer(int64_t(wide));
    } else {
        head(kFloating);
        littleEndian(std::bit_cast<Bits>(value));
    }
}

void TypedStreamWriter::floating(float value) { floatingValue(value); }
void TypedStreamWriter::floating(double value) { floatingValue(value); }

void TypedStreamWriter::unsharedString(std::string_view value) {
    integer(int64_t(value.size()));
    out_ += value;
}

void TypedStreamWriter::sharedString(std::string_view value) {
    auto [known, isNew] = sharedStrings_.try_emplace(std::string(value), sharedStrings_.size());
    if (!isNew) return number(known->second);
    head(kNew);
    unsharedString(value);
}

void TypedStreamWriter::cString(std::string_view value) {
    auto [known, isNew] = cStrings_.try_emplace(std::string(value), objectCount_);
    if (!isNew) return number(known->second);
    ++objectCount_;
    head(kNew);
    sharedString(value);
}

bool TypedStreamWriter::reference(const ObjectBody* object) {
    auto known = objects_.find(object);
    if (known == objects_.end()) return false;
    number(known->second);
    return true;
}

void TypedStreamWriter::beginObject(const ObjectBody* object, const Class& objectClass) {
    head(kNew);
    objects_.emplace(object, objectCount_++);
    classChain(objectClass);
}

// The class and its superclasses, as far as they were not written before.
void TypedStreamWriter::classChain(const Class& first) {
    for (const Class* c = &first; c; c = classNamed(c->superclass)) {
        auto [known, isNew] = objects_.try_emplace(c, objectCount_);
        if (!isNew) return number(known->second);
        ++objectCount_;
        head(kNew);
        sharedString(c->name);
        integer(c->version);
    }
    nil();
}

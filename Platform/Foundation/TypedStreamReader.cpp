// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/TypedStreamReader.h"

#include "Platform/Foundation/StringFormat.h"

#include <bit>

using namespace TypedStream;

// The first failure is the cause of all that follow.
bool TypedStreamReader::fail(const NSString& what) {
    if (!problem_) problem_ = stringWithFormat("%@ at byte %lu", what, at_);
    return false;
}

bool TypedStreamReader::bytes(std::string_view& value, size_t length) {
    if (problem_ || length > bytes_.size() - at_) return fail(u"Unexpected end");
    value = bytes_.substr(at_, length);
    at_ += length;
    return true;
}

bool TypedStreamReader::byte(uint8_t& value) {
    std::string_view one;
    if (!bytes(one, 1)) return false;
    value = uint8_t(one[0]);
    return true;
}

bool TypedStreamReader::head(int& value) {
    uint8_t bits = 0;
    if (!byte(bits)) return false;
    value = bits < 0x80 ? bits : bits - 0x100;
    return true;
}

template <class Bits>
bool TypedStreamReader::plain(Bits& value) {
    std::string_view all;
    if (!bytes(all, sizeof(Bits))) return false;
    value = 0;
    for (size_t i = 0; i < all.size(); ++i) {
        const size_t place = isLittleEndian_ ? i : all.size() - 1 - i;
        value = Bits(value | Bits(uint8_t(all[i])) << (8 * place));
    }
    return true;
}

bool TypedStreamReader::integerBehind(int head, int64_t& value) {
    uint16_t bits16 = 0;
    uint32_t bits32 = 0;
    uint64_t bits64 = 0;
    if (head >= kSmallest) {
        value = head;
        return true;
    }
    switch (head) {
    case kInteger16:
        if (!plain(bits16)) return false;
        value = int16_t(bits16);
        return true;
    case kInteger32:
        if (!plain(bits32)) return false;
        value = int32_t(bits32);
        return true;
    case kInteger64:
        if (!plain(bits64)) return false;
        value = int64_t(bits64);
        return true;
    default: return fail(u"No integer");
    }
}

bool TypedStreamReader::integer(int64_t& value, int64_t smallest, int64_t greatest) {
    int first = 0;
    if (!head(first) || !integerBehind(first, value)) return false;
    return (value >= smallest && value <= greatest) || fail(u"Integer out of range");
}

bool TypedStreamReader::count(size_t& value, size_t bytesEach) {
    int64_t number = 0;
    if (!integer(number, 0, INT32_MAX)) return false;
    value = size_t(number);
    return value <= (bytes_.size() - at_) / bytesEach || fail(u"Count beyond the end");
}

template <class Value, class Bits>
bool TypedStreamReader::floatingValue(Value& value) {
    int first = 0;
    if (!head(first)) return false;
    if (first == kFloating) {
        Bits bits = 0;
        if (!plain(bits)) return false;
        value = std::bit_cast<Value>(bits);
        return true;
    }
    int64_t whole = 0;
    if (!integerBehind(first, whole)) return false;
    value = Value(whole);
    return true;
}

bool TypedStreamReader::floating(float& value) { return floatingValue<float, uint32_t>(value); }
bool TypedStreamReader::floating(double& value) { return floatingValue<double, uint64_t>(value); }

bool TypedStreamReader::unsharedString(std::string_view& value) {
    int64_t length = 0;
    return integer(length, 0, INT64_MAX) && bytes(value, size_t(length));
}

bool TypedStreamReader::referenceBehind(int head, size_t limit, size_t& number) {
    int64_t value = 0;
    if (!integerBehind(head, value)) return false;
    if (value < kSmallest || value >= int64_t(limit) + kSmallest) return fail(u"Reference to nothing");
    number = size_t(value - kSmallest);
    return true;
}

bool TypedStreamReader::sharedStringBehind(int head, std::string_view& value) {
    if (head == kNew) {
        if (!unsharedString(value)) return false;
        sharedStrings_.push_back(value);
        return true;
    }
    size_t number = 0;
    if (!referenceBehind(head, sharedStrings_.size(), number)) return false;
    value = sharedStrings_[number];
    return true;
}

bool TypedStreamReader::sharedString(std::string_view& value) {
    int first = 0;
    return head(first) && sharedStringBehind(first, value);
}

bool TypedStreamReader::cString(std::string_view& value) {
    int first = 0;
    if (!head(first)) return false;
    if (first == kNew) {
        if (!sharedString(value)) return false;
        entries_.push_back({{}, {}, nullptr, value});
        return true;
    }
    size_t number = 0;
    if (!referenceBehind(first, entries_.size(), number)) return false;
    value = entries_[number].cString;
    return value.data() || fail(u"Reference to no C string");
}

bool TypedStreamReader::header() {
    uint8_t version = 0, length = 0;
    std::string_view signature;
    int64_t systemVersion = 0;
    if (!byte(version) || !byte(length) || !bytes(signature, length)) return false;
    if (version != kStreamerVersion || (signature != kLittleEndian && signature != kBigEndian)) {
        return fail(u"No archive");
    }
    isLittleEndian_ = signature == kLittleEndian;
    return integer(systemVersion, INT32_MIN, INT32_MAX);
}

bool TypedStreamReader::group(std::string_view encoding) {
    std::string_view found;
    if (!sharedString(found)) return false;
    return found == encoding ||
           fail(stringWithFormat("Values of type %@ instead of %@", NSString::fromUTF8(found),
                                 NSString::fromUTF8(encoding)));
}

// The class of an object, with its superclasses as far as they were not read before.
bool TypedStreamReader::classChain(const Class*& objectClass) {
    objectClass = nullptr;
    for (const Class* subclass = nullptr;;) {
        int first = 0;
        if (!head(first)) return false;
        if (first == kNil)
            return (subclass && subclass->superclass.empty()) || fail(u"Class without its superclass");
        const Class* found = first == kNew ? newClass() : knownClass(first);
        if (!found) return false;
        if (!objectClass) objectClass = found;
        if (subclass && subclass->superclass != found->name)
            return fail(u"Class with a superclass not its own");
        if (first != kNew) return true;
        subclass = found;
    }
}

const Class* TypedStreamReader::newClass() {
    std::string_view name;
    int64_t version = 0;
    if (!sharedString(name) || !integer(version, INT32_MIN, INT32_MAX)) return nullptr;
    const Class* found = classNamed(name);
    if (!found || found->version != version) {
        fail(stringWithFormat("Unknown class %@, version %ld,", NSString::fromUTF8(name), version));
        return nullptr;
    }
    entries_.push_back({{}, {}, found, {}});
    return found;
}

const Class* TypedStreamReader::knownClass(int head) {
    size_t number = 0;
    if (!referenceBehind(head, entries_.size(), number)) return nullptr;
    if (!entries_[number].objectClass) fail(u"Reference to no class");
    return entries_[number].objectClass;
}

TypedStreamReader::Next TypedStreamReader::object(NSObject& known, TreeMeasure& measure, size_t& number,
                                                  const Class*& objectClass) {
    int first = 0;
    if (!head(first)) return Next::failure;
    if (first == kNil) return Next::nil;
    if (first == kNew) {
        number = entries_.size();
        entries_.emplace_back();
        return classChain(objectClass) ? Next::begun : Next::failure;
    }
    if (!referenceBehind(first, entries_.size(), number)) return Next::failure;
    known = entries_[number].object;
    measure = entries_[number].measure;
    if (known) return Next::known;
    fail(u"Reference to no object, or to one around it");
    return Next::failure;
}

bool TypedStreamReader::endObject(size_t number, const NSObject& object, const TreeMeasure& measure) {
    int last = 0;
    if (!head(last)) return false;
    if (last != kEndOfObject) return fail(u"Object without end");
    entries_[number].object = object;
    entries_[number].measure = measure;
    return true;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSClass.h"

#include "Platform/Foundation/StringFormat.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

class ClassBody final : public ObjectBody {
public:
    explicit ClassBody(std::string_view name) : ObjectBody(NSKind::classObject), name(name) {}

    // A class is its own class, as far as messages about it are concerned.
    std::string_view className() const override { return name; }
    bool isEqual(const ObjectBody& other) const override {
        return name == static_cast<const ClassBody&>(other).name;
    }
    std::u16string description(unsigned) const override { return fromUTF8(name); }

    const std::string name;
};

class UIDBody final : public ObjectBody {
public:
    explicit UIDBody(uint32_t value) : ObjectBody(NSKind::uid), value(value) {}

    std::string_view className() const override { return "__NSCFType"; }
    bool isEqual(const ObjectBody& other) const override {
        return value == static_cast<const UIDBody&>(other).value;
    }
    size_t hash() const override { return value; }
    std::u16string description(unsigned) const override {
        return stringWithFormat("<CFKeyedArchiverUID>{value = %u}", value).text();
    }

    const uint32_t value;
};

} // namespace

NSClass::NSClass(std::string_view name) : NSObject(new ClassBody(name)) {}

std::string_view NSClass::name() const { return className(); }

CFKeyedArchiverUID::CFKeyedArchiverUID(uint32_t value) : NSObject(new UIDBody(value)) {}

uint32_t CFKeyedArchiverUID::value() const { return body() ? static_cast<const UIDBody*>(body())->value : 0; }

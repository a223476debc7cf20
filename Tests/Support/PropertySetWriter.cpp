// SPDX-License-Identifier: Apache-2.0
#include "Tests/Support/PropertySetWriter.h"

#include "Tests/Support/LittleEndianWriter.h"

namespace {

enum Type : uint32_t { kInteger16 = 2, kInteger32 = 3, kByteString = 30, kWideString = 31, kFileTime = 64 };

std::string value(Type type) {
    std::string bytes;
    append32(bytes, type);
    return bytes;
}

} // namespace

PropertySetWriter::PropertySetWriter(unsigned codePage) {
    if (codePage == 0) return;
    std::string bytes = value(kInteger16);
    append32(bytes, codePage);
    properties_.emplace_back(1, bytes);
}

PropertySetWriter& PropertySetWriter::byteString(uint32_t identifier, std::string_view text) {
    std::string bytes = value(kByteString);
    append32(bytes, uint32_t(text.size()));
    bytes += text;
    padTo(bytes, 4);
    properties_.emplace_back(identifier, bytes);
    return *this;
}

PropertySetWriter& PropertySetWriter::wideString(uint32_t identifier, std::u16string_view text) {
    std::string bytes = value(kWideString);
    append32(bytes, uint32_t(text.size() + 1));
    appendWide(bytes, text);
    append16(bytes, 0);
    padTo(bytes, 4);
    properties_.emplace_back(identifier, bytes);
    return *this;
}

PropertySetWriter& PropertySetWriter::time(uint32_t identifier, uint64_t ticks) {
    std::string bytes = value(kFileTime);
    append32(bytes, uint32_t(ticks));
    append32(bytes, uint32_t(ticks >> 32));
    properties_.emplace_back(identifier, bytes);
    return *this;
}

PropertySetWriter& PropertySetWriter::number(uint32_t identifier, uint32_t number) {
    std::string bytes = value(kInteger32);
    append32(bytes, number);
    properties_.emplace_back(identifier, bytes);
    return *this;
}

std::string PropertySetWriter::finish() const {
    std::string section, values;
    size_t valuesOffset = 8 + 8 * properties_.size();
    for (const auto& [identifier, bytes] : properties_) {
        append32(section, identifier);
        append32(section, uint32_t(valuesOffset + values.size()));
        values += bytes;
    }
    std::string set;
    append16(set, 0xFFFE);
    set.resize(24);
    append32(set, 1); // sections
    set.resize(44);   // the section's format identifier
    append32(set, 48);
    append32(set, uint32_t(valuesOffset + values.size()));
    append32(set, uint32_t(properties_.size()));
    return set + section + values;
}

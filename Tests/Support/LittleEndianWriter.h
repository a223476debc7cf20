// SPDX-License-Identifier: Apache-2.0
//
// Little-endian numbers for the samples that the tests make.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

inline void append8(std::string& out, unsigned value) { out.push_back(char(value)); }

inline void append16(std::string& out, unsigned value) {
    append8(out, value);
    append8(out, value >> 8);
}

inline void append32(std::string& out, uint32_t value) {
    append16(out, value);
    append16(out, value >> 16);
}

inline void appendWide(std::string& out, std::u16string_view text) {
    for (char16_t unit : text) append16(out, unit);
}

// Overwrites, and makes the bytes long enough before.
inline void put16(std::string& bytes, size_t offset, unsigned value) {
    if (bytes.size() < offset + 2) bytes.resize(offset + 2);
    bytes[offset] = char(value);
    bytes[offset + 1] = char(value >> 8);
}

inline void put32(std::string& bytes, size_t offset, uint32_t value) {
    put16(bytes, offset, value & 0xFFFF);
    put16(bytes, offset + 2, value >> 16);
}

inline void padTo(std::string& bytes, size_t multiple) {
    bytes.resize((bytes.size() + multiple - 1) / multiple * multiple);
}

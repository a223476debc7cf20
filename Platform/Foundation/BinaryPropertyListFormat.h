// SPDX-License-Identifier: Apache-2.0
//
// The layout of binary property lists, version 1.0: a magic number, the objects, a table of their offsets, a
// trailer. All numbers are big-endian.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace BinaryPropertyList {

constexpr std::string_view kMagic = "bplist00";
constexpr size_t kTrailerSize = 32;

// The upper half of an object's first byte; the lower half is a size or a count.
enum Kind : uint8_t {
    kSimple = 0x0, // null, false and true
    kInteger = 0x1,
    kReal = 0x2,
    kDate = 0x3,
    kData = 0x4,
    kASCIIString = 0x5,
    kUTF16String = 0x6,
    kUID = 0x8,
    kArray = 0xA,
    kDictionary = 0xD,
};

enum Simple : uint8_t { kNull = 0x00, kFalse = 0x08, kTrue = 0x09 };

constexpr unsigned kReal32 = 2, kReal64 = 3; // exponents of two of the sizes
constexpr unsigned kExtendedCount = 15;      // the count follows as an integer object

} // namespace BinaryPropertyList

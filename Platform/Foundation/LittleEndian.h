// SPDX-License-Identifier: Apache-2.0
//
// Little-endian numbers in the bytes of a document. Every read is checked: what lies past the end reads
// as 0 and a slice is cut to what is there, so that a truncated structure looks like one filled up with
// zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

inline bool holds(std::string_view bytes, size_t offset, size_t length) {
    return offset <= bytes.size() && length <= bytes.size() - offset;
}

inline uint8_t uint8At(std::string_view bytes, size_t offset) {
    return offset < bytes.size() ? uint8_t(bytes[offset]) : uint8_t(0);
}

inline uint16_t uint16At(std::string_view bytes, size_t offset) {
    if (!holds(bytes, offset, 2)) return 0;
    return uint16_t(uint8_t(bytes[offset]) | uint8_t(bytes[offset + 1]) << 8);
}

inline uint32_t uint32At(std::string_view bytes, size_t offset) {
    if (!holds(bytes, offset, 4)) return 0;
    return uint32_t(uint16At(bytes, offset)) | uint32_t(uint16At(bytes, offset + 2)) << 16;
}

inline uint64_t uint64At(std::string_view bytes, size_t offset) {
    if (!holds(bytes, offset, 8)) return 0;
    return uint64_t(uint32At(bytes, offset)) | uint64_t(uint32At(bytes, offset + 4)) << 32;
}

inline std::string_view slice(std::string_view bytes, size_t offset, size_t length = std::string_view::npos) {
    return bytes.substr(std::min(offset, bytes.size()), length);
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/AppKit/RTF/RTFDecoder.h"

#include "Platform/Foundation/ASCII.h"
#include "Platform/Foundation/MultiByteDecoder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace {

// Appends a unit for each byte, by way of the stack, so that the string is never filled before it is written.
template <typename UnitOfByte>
void appendEach(std::u16string& out, std::string_view bytes, UnitOfByte unitOfByte) {
    std::array<char16_t, 512> units;
    while (!bytes.empty()) {
        size_t count = std::min(bytes.size(), units.size());
        for (size_t i = 0; i < count; ++i) units[i] = unitOfByte(static_cast<unsigned char>(bytes[i]));
        out.append(units.data(), count);
        bytes.remove_prefix(count);
    }
}

} // namespace

void RTFDecoder::use(NSStringEncoding encoding, SymbolFont symbols) {
    encoding_ = encoding;
    symbols_ = symbols;
    upperHalf_ = upperHalf(encoding);
}

void RTFDecoder::append(std::u16string& out, std::string_view bytes) {
    if (symbols_ != SymbolFont::none) {
        appendEach(out, bytes, [this](unsigned char byte) {
            return byte < u' ' ? char16_t(byte) : characterOf(symbols_, byte);
        });
    } else if (encoding_ != NSSymbolStringEncoding && !holdsBytes() && isASCII(bytes)) {
        appendEach(out, bytes, [](unsigned char byte) { return char16_t(byte); });
    } else if (upperHalf_ != nullptr) {
        const char16_t* upper = upperHalf_;
        appendEach(out, bytes,
                   [upper](unsigned char byte) { return byte < 0x80 ? char16_t(byte) : upper[byte - 0x80]; });
    } else {
        held_ += bytes;
    }
}

void RTFDecoder::flush(std::u16string& out) {
    if (held_.empty()) return;
    if (isMultiByteEncoding(encoding_)) {
        // A lead byte alone comes from a writer that took the font for one of its own letters.
        appendMultiByte(out, held_, encoding_, upperHalf(NSWindowsCP1252StringEncoding));
    } else {
        appendDecoded(out, held_, encoding_);
    }
    held_.clear();
}

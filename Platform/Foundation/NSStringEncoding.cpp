// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSStringEncoding.h"

#include "Platform/Foundation/CodePageTables.h"
#include "Platform/Foundation/EncodingNumbers.h"
#include "Platform/Foundation/MultiByteDecoder.h"
#include "Platform/Foundation/OneByteEncodings.h"
#include "Platform/Foundation/SevenBitForm.h"
#include "Platform/Foundation/UnicodeText.h"

#include <array>

namespace {

constexpr OneByteEncoding kFallback = {NSWindowsCP1252StringEncoding, kWindows1252};

constexpr size_t kChunk = 1024;

// Appends what `convert(units, bytes)` makes of pieces of at most kChunk units, each from `width` bytes.
// Gathered on the stack, the string is not filled with zeros first.
template <typename Convert>
void appendInChunks(std::u16string& out, std::string_view bytes, size_t width, Convert convert) {
    std::array<char16_t, kChunk> units;
    out.reserve(out.size() + bytes.size() / width);
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, kChunk * width);
        convert(units.data(), piece);
        out.append(units.data(), piece.size() / width);
        bytes.remove_prefix(piece.size());
    }
}

unsigned char byteAt(std::string_view bytes, size_t i) { return static_cast<unsigned char>(bytes[i]); }

bool appendOneByte(std::u16string& out, std::string_view bytes, const OneByteEncoding& encoding) {
    const bool fillsWithControls = encoding.fillsWithControls();
    bool undefined = false;
    appendInChunks(out, bytes, 1, [&](char16_t* units, std::string_view piece) {
        for (size_t i = 0; i < piece.size(); ++i) {
            const unsigned char byte = byteAt(piece, i);
            char16_t unit = byte;
            if (byte >= 0x80) {
                unit = encoding.upper[byte - 0x80];
                undefined |=
                    unit == kReplacementCharacter || (unit == byte && byte < 0xA0 && fillsWithControls);
            } else if (encoding.lower) {
                unit = encoding.lower[byte];
                undefined |= unit == kReplacementCharacter;
            }
            units[i] = unit;
        }
    });
    return !undefined;
}

enum class ByteOrder { big, little };

bool appendUTF16(std::u16string& out, std::string_view bytes, ByteOrder order) {
    const size_t whole = bytes.size() & ~size_t(1);
    const unsigned high = order == ByteOrder::big ? 0 : 1;
    appendInChunks(out, bytes.substr(0, whole), 2, [high](char16_t* units, std::string_view piece) {
        for (size_t i = 0; i < piece.size(); i += 2) {
            units[i / 2] = char16_t(byteAt(piece, i + high) << 8 | byteAt(piece, i + 1 - high));
        }
    });
    return whole == bytes.size();
}

bool appendUTF32(std::u16string& out, std::string_view bytes, ByteOrder order) {
    const size_t whole = bytes.size() & ~size_t(3);
    bool valid = whole == bytes.size();
    out.reserve(out.size() + whole / 4);
    for (size_t i = 0; i < whole; i += 4) {
        char32_t codePoint = 0;
        for (size_t k = 0; k < 4; ++k) {
            codePoint = codePoint << 8 | byteAt(bytes, order == ByteOrder::big ? i + k : i + 3 - k);
        }
        if (codePoint > 0x10FFFF || isSurrogate(codePoint)) {
            codePoint = kReplacementCharacter;
            valid = false;
        }
        appendCodePoint(out, codePoint);
    }
    return valid;
}

// Drops the mark that `bytes` begin with, if it is one of the two, and tells the order.
ByteOrder takeByteOrder(std::string_view& bytes, const ByteOrderMark& mark, NSStringEncoding big,
                        NSStringEncoding little) {
    if (mark.encoding == big || mark.encoding == little) bytes.remove_prefix(mark.size);
    return mark.encoding == little ? ByteOrder::little : ByteOrder::big;
}

} // namespace

bool isStringEncodingAvailable(NSStringEncoding encoding) {
    switch (encoding) {
    case NSUTF8StringEncoding:
    case NSUnicodeStringEncoding:
    case NSUTF16BigEndianStringEncoding:
    case NSUTF16LittleEndianStringEncoding:
    case NSUTF32StringEncoding:
    case NSUTF32BigEndianStringEncoding:
    case NSUTF32LittleEndianStringEncoding: return true;
    default:
        return oneByteEncoding(encoding) || isMultiByteEncoding(encoding) ||
               eightBitEncoding(encoding) != NSNoStringEncoding;
    }
}

bool appendDecoded(std::u16string& out, std::string_view bytes, NSStringEncoding encoding) {
    switch (encoding) {
    case NSUTF8StringEncoding: return appendUTF8(out, bytes);
    case NSUnicodeStringEncoding: {
        const ByteOrder order = takeByteOrder(bytes, byteOrderMark(bytes), NSUTF16BigEndianStringEncoding,
                                              NSUTF16LittleEndianStringEncoding);
        return appendUTF16(out, bytes, order);
    }
    case NSUTF16BigEndianStringEncoding: return appendUTF16(out, bytes, ByteOrder::big);
    case NSUTF16LittleEndianStringEncoding: return appendUTF16(out, bytes, ByteOrder::little);
    case NSUTF32StringEncoding: {
        const ByteOrder order =
            takeByteOrder(bytes, byteOrderMarkOfUTF32(bytes), NSUTF32BigEndianStringEncoding,
                          NSUTF32LittleEndianStringEncoding);
        return appendUTF32(out, bytes, order);
    }
    case NSUTF32BigEndianStringEncoding: return appendUTF32(out, bytes, ByteOrder::big);
    case NSUTF32LittleEndianStringEncoding: return appendUTF32(out, bytes, ByteOrder::little);
    default: break;
    }
    if (const OneByteEncoding* oneByte = oneByteEncoding(encoding))
        return appendOneByte(out, bytes, *oneByte);
    if (isMultiByteEncoding(encoding)) return appendMultiByte(out, bytes, encoding);
    if (const NSStringEncoding eightBit = eightBitEncoding(encoding); eightBit != NSNoStringEncoding) {
        return appendMultiByte(out, eightBitForm(bytes, encoding), eightBit);
    }
    return appendOneByte(out, bytes, kFallback);
}

const char16_t* upperHalf(NSStringEncoding encoding) {
    const OneByteEncoding* oneByte = oneByteEncoding(encoding);
    return oneByte && !oneByte->lower ? oneByte->upper : nullptr;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/MultiByteEncoder.h"
#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/OneByteEncodings.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

enum class ByteOrder { big, little };

// Appends the lowest `width` bytes of a value.
void append(std::string& out, char32_t value, unsigned width, ByteOrder order) {
    for (unsigned i = 0; i < width; ++i) {
        out.push_back(char(value >> 8 * (order == ByteOrder::big ? width - 1 - i : i)));
    }
}

bool appendUTF16(std::string& out, std::u16string_view text, ByteOrder order) {
    out.reserve(out.size() + 2 * text.size());
    for (char16_t unit : text) append(out, unit, 2, order);
    return true;
}

bool appendUTF32(std::string& out, std::u16string_view text, ByteOrder order) {
    if (hasLoneSurrogate(text)) return false;
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t codePoint = text[i];
        if (isHighSurrogate(codePoint)) codePoint = joinSurrogates(text[i], text[i + 1]), ++i;
        append(out, codePoint, 4, order);
    }
    return true;
}

// The bytes of units, for a table of up to 256.
class ByteTable {
public:
    explicit ByteTable(const OneByteEncoding& encoding) {
        const bool isASCII = encoding.number == NSASCIIStringEncoding; // read as Latin 1, not written so
        for (unsigned byte = 0; byte < (isASCII ? 0x80 : 0x100); ++byte) {
            char16_t unit = char16_t(byte);
            if (byte >= 0x80) unit = encoding.upper[byte - 0x80];
            if (byte < 0x80 && encoding.lower) unit = encoding.lower[byte];
            const bool undefined =
                unit == kReplacementCharacter ||
                (encoding.fillsWithControls() && byte >= 0x80 && byte < 0xA0 && unit == byte);
            if (!undefined) entries_[count_++] = {unit, static_cast<unsigned char>(byte)};
        }
        std::stable_sort(entries_.begin(), entries_.begin() + count_,
                         [](const Entry& a, const Entry& b) { return a.unit < b.unit; });
    }

    // Null when there is no such character in the encoding.
    const unsigned char* byteOf(char16_t unit) const {
        const auto end = entries_.begin() + count_;
        const auto entry = std::lower_bound(entries_.begin(), end, unit,
                                            [](const Entry& e, char16_t wanted) { return e.unit < wanted; });
        return entry != end && entry->unit == unit ? &entry->byte : nullptr;
    }

private:
    struct Entry {
        char16_t unit;
        unsigned char byte;
    };
    std::array<Entry, 256> entries_;
    ptrdiff_t count_ = 0;
};

bool appendOneByte(std::string& out, std::u16string_view text, const OneByteEncoding& encoding) {
    const ByteTable table(encoding);
    out.reserve(out.size() + text.size());
    for (char16_t unit : text) {
        const unsigned char* byte = table.byteOf(unit);
        if (!byte) return false;
        out.push_back(char(*byte));
    }
    return true;
}

} // namespace

bool appendEncoded(std::string& out, std::u16string_view text, NSStringEncoding encoding) {
    switch (encoding) {
    case NSUTF8StringEncoding:
        if (hasLoneSurrogate(text)) return false;
        out += toUTF8(text);
        return true;
    case NSUnicodeStringEncoding: append(out, 0xFEFF, 2, ByteOrder::little); [[fallthrough]];
    case NSUTF16LittleEndianStringEncoding: return appendUTF16(out, text, ByteOrder::little);
    case NSUTF16BigEndianStringEncoding: return appendUTF16(out, text, ByteOrder::big);
    case NSUTF32StringEncoding: append(out, 0xFEFF, 4, ByteOrder::little); [[fallthrough]];
    case NSUTF32LittleEndianStringEncoding: return appendUTF32(out, text, ByteOrder::little);
    case NSUTF32BigEndianStringEncoding: return appendUTF32(out, text, ByteOrder::big);
    default: break;
    }
    if (const OneByteEncoding* oneByte = oneByteEncoding(encoding)) return appendOneByte(out, text, *oneByte);
    return appendMultiByteEncoded(out, text, encoding);
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/MultiByteDecoder.h"

#include "Platform/Foundation/EncodingNumbers.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <iconv.h>
#include <optional>

namespace {

struct ByteRange {
    unsigned char first, last;
};

constexpr ByteRange kNone{1, 0};

struct Charset {
    const char* iconvName;
    ByteRange leadBytes[3];  // of two-byte characters
    unsigned char threeByte; // the byte that starts three-byte characters, or 0
    char16_t unitOf80;       // what Windows reads in a byte 80 that iconv rejects, or 0
    bool hasWonSign;         // iconv reads the backslash as a won sign, unlike Windows
};

enum CharsetIndex { kShiftJIS, kEUCJP, kGB, kKorean, kBig5, kBig5HKSCS, kJohab, kCharsetCount };

constexpr Charset kCharsets[kCharsetCount] = {
    {"CP932", {{0x81, 0x9F}, {0xE0, 0xFC}, kNone}, 0, 0, false},
    {"EUC-JP-MS", {{0x8E, 0x8E}, {0xA1, 0xFE}, kNone}, 0x8F, 0, false},
    {"GB18030", {{0x81, 0xFE}, kNone, kNone}, 0, u'\u20AC', false},
    {"UHC", {{0x81, 0xFE}, kNone, kNone}, 0, 0, false},
    {"BIG5", {{0x81, 0xFE}, kNone, kNone}, 0, 0, false},
    {"BIG5-HKSCS", {{0x81, 0xFE}, kNone, kNone}, 0, 0, false},
    {"JOHAB", {{0x84, 0xD3}, {0xD8, 0xDE}, {0xE0, 0xF9}}, 0, 0, true},
};

// The Macintosh encodings share their two-byte characters with those of Windows.
constexpr struct {
    NSStringEncoding encoding;
    CharsetIndex charset;
} kEncodings[] = {
    {NSShiftJISStringEncoding, kShiftJIS},
    {kEncodingDOS932, kShiftJIS},
    {kEncodingMacJapanese, kShiftJIS},
    {NSJapaneseEUCStringEncoding, kEUCJP},
    {kEncodingDOS936, kGB},
    {kEncodingGBK, kGB},
    {kEncodingGB18030, kGB},
    {kEncodingEUCCN, kGB},
    {kEncodingMacChineseSimplified, kGB},
    {kEncodingDOS949, kKorean},
    {kEncodingEUCKR, kKorean},
    {kEncodingMacKorean, kKorean},
    {kEncodingDOS950, kBig5},
    {kEncodingMacChineseTraditional, kBig5},
    {kEncodingBig5, kBig5HKSCS},
    {kEncodingBig5HKSCS, kBig5HKSCS},
    {kEncodingJohab, kJohab},
};

// kCharsetCount when the encoding is not among them.
CharsetIndex charsetOf(NSStringEncoding encoding) {
    for (const auto& row : kEncodings) {
        if (row.encoding == encoding) return row.charset;
    }
    return kCharsetCount;
}

bool isHighByte(char byte) { return static_cast<unsigned char>(byte) >= 0x80; }

bool isLead(const Charset& charset, unsigned char byte) {
    return std::any_of(std::begin(charset.leadBytes), std::end(charset.leadBytes),
                       [byte](ByteRange range) { return byte >= range.first && byte <= range.last; });
}

class Converter {
public:
    explicit Converter(const char* iconvName) : descriptor_(iconv_open(kTarget, iconvName)) {}
    ~Converter() {
        if (isOpen()) iconv_close(descriptor_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool isOpen() const { return descriptor_ != iconv_t(-1); }
    void reset() { iconv(descriptor_, nullptr, nullptr, nullptr, nullptr); }

    // Takes what it can from the front of `bytes`; the result is 0 or iconv's errno.
    int convert(std::u16string& out, std::string_view& bytes) {
        char* in = const_cast<char*>(bytes.data());
        size_t left = bytes.size();
        const int error = run(out, &in, &left);
        bytes.remove_prefix(bytes.size() - left);
        return error;
    }

    // Appends what the converter has held back.
    void finish(std::u16string& out) { run(out, nullptr, nullptr); }

private:
    static constexpr const char* kTarget =
        std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

    int run(std::u16string& out, char** in, size_t* left) {
        std::array<char16_t, 2048> units;
        char* to = reinterpret_cast<char*>(units.data());
        size_t room = sizeof units;
        const int error = iconv(descriptor_, in, left, &to, &room) == size_t(-1) ? errno : 0;
        out.append(units.data(), (sizeof units - room) / sizeof(char16_t));
        return error;
    }

    iconv_t descriptor_;
};

Converter& converterOf(CharsetIndex index) {
    // Opening costs far more than most texts take to convert.
    thread_local std::array<std::optional<Converter>, kCharsetCount> converters;
    std::optional<Converter>& converter = converters[index];
    if (!converter) converter.emplace(kCharsets[index].iconvName);
    return *converter;
}

// The bytes of the character at the front that iconv rejects: never ASCII ones after the first, which may be
// markup or a line end.
size_t rejectedLength(std::string_view bytes, const Charset& charset) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const size_t longest = lead == charset.threeByte ? 3 : isLead(charset, lead) ? 2 : 1;
    size_t length = 1;
    while (length < longest && length < bytes.size() && isHighByte(bytes[length])) ++length;
    return length;
}

bool convertAll(std::u16string& out, std::string_view bytes, const Charset& charset, Converter& converter,
                const char16_t* loneBytes) {
    bool whole = true;
    converter.reset();
    while (!bytes.empty()) {
        const int error = converter.convert(out, bytes);
        if (error == 0 || error == E2BIG) continue;
        if (error == EILSEQ && bytes[0] == '\x80' && charset.unitOf80 != 0) {
            out.push_back(charset.unitOf80);
            bytes.remove_prefix(1);
            continue;
        }
        whole = false;
        // Otherwise the rest is an incomplete character.
        const size_t length = error == EILSEQ ? rejectedLength(bytes, charset) : bytes.size();
        const bool isLone = length == 1 && loneBytes != nullptr && isHighByte(bytes[0]);
        out.push_back(isLone ? loneBytes[bytes[0] & 0x7F] : kReplacementCharacter);
        bytes.remove_prefix(length);
    }
    converter.finish(out);
    return whole;
}

} // namespace

bool isMultiByteEncoding(NSStringEncoding encoding) { return charsetOf(encoding) != kCharsetCount; }

bool appendMultiByte(std::u16string& out, std::string_view bytes, NSStringEncoding encoding,
                     const char16_t* loneBytes) {
    const size_t plain = size_t(std::find_if(bytes.begin(), bytes.end(), isHighByte) - bytes.begin());
    appendUTF8(out, bytes.substr(0, plain));
    bytes.remove_prefix(plain);
    if (bytes.empty()) return true;

    const CharsetIndex index = charsetOf(encoding);
    Converter& converter = converterOf(index);
    if (!converter.isOpen()) {
        for (char byte : bytes) out.push_back(isHighByte(byte) ? kReplacementCharacter : char16_t(byte));
        return false;
    }
    const size_t start = out.size();
    const bool whole = convertAll(out, bytes, kCharsets[index], converter, loneBytes);
    if (kCharsets[index].hasWonSign) std::replace(out.begin() + start, out.end(), u'\u20A9', u'\\');
    return whole;
}

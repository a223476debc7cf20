// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/MultiByteEncoder.h"

#include "Platform/Foundation/EncodingNumbers.h"

#include <array>
#include <bit>
#include <cerrno>
#include <iconv.h>

namespace {

// Stricter than what the decoder reads: nothing that only an extension of the encoding has.
constexpr struct {
    NSStringEncoding encoding;
    const char* iconvName;
} kCharsets[] = {
    {NSJapaneseEUCStringEncoding, "EUC-JP-MS"},
    {NSShiftJISStringEncoding, "CP932"},
    {NSISO2022JPStringEncoding, "ISO-2022-JP"},
    {kEncodingMacJapanese, "CP932"},
    {kEncodingMacChineseTraditional, "BIG5"},
    {kEncodingMacKorean, "EUC-KR"},
    {kEncodingMacChineseSimplified, "EUC-CN"},
    {kEncodingDOS932, "CP932"},
    {kEncodingDOS936, "GBK"},
    {kEncodingDOS949, "UHC"},
    {kEncodingDOS950, "BIG5"},
    {kEncodingJohab, "JOHAB"},
    {kEncodingGBK, "GBK"},
    {kEncodingGB18030, "GB18030"},
    {kEncodingISO2022KR, "ISO-2022-KR"},
    {kEncodingEUCCN, "EUC-CN"},
    {kEncodingEUCKR, "EUC-KR"},
    {kEncodingBig5, "BIG5"},
    {kEncodingBig5HKSCS, "BIG5-HKSCS"},
};

class Converter {
public:
    explicit Converter(const char* iconvName) : descriptor_(iconv_open(iconvName, kSource)) {}
    ~Converter() {
        if (isOpen()) iconv_close(descriptor_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool isOpen() const { return descriptor_ != iconv_t(-1); }

    // Converts `in`, or without one writes what leads back to ASCII.
    bool run(std::string& out, char* in, size_t left) {
        for (;;) {
            std::array<char, 4096> bytes;
            char* to = bytes.data();
            size_t room = bytes.size();
            const size_t result = in ? iconv(descriptor_, &in, &left, &to, &room)
                                     : iconv(descriptor_, nullptr, nullptr, &to, &room);
            const int error = result == size_t(-1) ? errno : 0;
            out.append(bytes.data(), bytes.size() - room);
            if (error != E2BIG) return error == 0;
        }
    }

private:
    static constexpr const char* kSource =
        std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE";

    iconv_t descriptor_;
};

} // namespace

bool appendMultiByteEncoded(std::string& out, std::u16string_view text, NSStringEncoding encoding) {
    for (const auto& row : kCharsets) {
        if (row.encoding != encoding) continue;
        Converter converter(row.iconvName);
        char* bytes = reinterpret_cast<char*>(const_cast<char16_t*>(text.data()));
        return converter.isOpen() && converter.run(out, bytes, text.size() * sizeof(char16_t)) &&
               converter.run(out, nullptr, 0);
    }
    return false;
}

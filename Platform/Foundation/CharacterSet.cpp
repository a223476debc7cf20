// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/CharacterSet.h"

#include "Platform/Foundation/Module.h"
#include "Platform/Foundation/UnicodeText.h"

namespace {

constexpr size_t kSample = 64 << 10; // bytes, from the first that is not ASCII on
constexpr int kLeastConfidence = 20;

// UTF-16 without a mark: every other byte of text in European languages is 0.
NSStringEncoding unmarkedUTF16(std::string_view bytes) {
    bytes = bytes.substr(0, kSample);
    size_t zeros[2] = {0, 0};
    for (size_t i = 0; i < bytes.size(); ++i) zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
    const size_t most = bytes.size() / 2;
    if (zeros[0] > most * 3 / 4 && zeros[1] == 0) return NSUTF16BigEndianStringEncoding;
    if (zeros[1] > most * 3 / 4 && zeros[0] == 0) return NSUTF16LittleEndianStringEncoding;
    return NSNoStringEncoding;
}

NSStringEncoding byFrequencies(std::string_view bytes) {
    size_t first = 0;
    while (first < bytes.size() && static_cast<unsigned char>(bytes[first]) < 0x80) ++first;
    const size_t begin = first > kSample / 4 ? first - kSample / 4 : 0;
    static const ModuleEntry<CharacterSetModuleEntry> module("CharacterSet");
    std::string name;
    int confidence = 0;
    if (!module.get() || !module.get()(bytes.substr(begin, kSample), name, confidence))
        return NSNoStringEncoding;
    const NSStringEncoding found = encodingForIANAName(name);
    const bool isUsable = confidence >= kLeastConfidence && isStringEncodingAvailable(found);
    // What is called Latin 1 is the code page nearly always.
    return isUsable && found != NSISOLatin1StringEncoding ? found : NSNoStringEncoding;
}

} // namespace

NSStringEncoding likelyEncoding(std::string_view bytes) {
    const ByteOrderMark wide = byteOrderMarkOfUTF32(bytes);
    if (wide.encoding != NSNoStringEncoding) return NSUTF32StringEncoding;
    const ByteOrderMark mark = byteOrderMark(bytes);
    if (mark.encoding == NSUTF8StringEncoding) return NSUTF8StringEncoding;
    if (mark.encoding != NSNoStringEncoding) return NSUnicodeStringEncoding;
    const NSStringEncoding utf16 = unmarkedUTF16(bytes);
    if (utf16 != NSNoStringEncoding) return utf16;
    if (isUTF8(bytes)) return NSUTF8StringEncoding;
    const NSStringEncoding likely = byFrequencies(bytes);
    return likely == NSNoStringEncoding ? NSStringEncoding(NSWindowsCP1252StringEncoding) : likely;
}

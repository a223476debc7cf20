// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORCreation.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "ZORFoundation/Source/NSError+ZOR.h"

#include <array>
#include <sys/random.h>

namespace {

bool isUTF16(NSStringEncoding encoding) {
    return encoding == NSUnicodeStringEncoding || encoding == NSUTF16BigEndianStringEncoding ||
           encoding == NSUTF16LittleEndianStringEncoding;
}

} // namespace

NSString zorStringWithFormat(std::string_view format, std::initializer_list<FormatArgument> arguments) {
    return formatString(format, arguments);
}

NSString zorUniqueString() {
    std::array<unsigned char, 16> bytes;
    if (getrandom(bytes.data(), bytes.size(), 0) != ssize_t(bytes.size())) return nullptr;
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0F) | 0x40); // version 4: random
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3F) | 0x80);
    std::u16string text;
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text.push_back(u'-');
        text += stringWithFormat("%02X", bytes[i]).text();
    }
    return text;
}

NSString zorUniqueString(const NSString& prefix) {
    return stringWithFormat("%@.%@", prefix, zorUniqueString());
}

NSStringEncoding zorStringEncodingForMIMEEncoding(const NSString& name) {
    const NSStringEncoding encoding = encodingForIANAName(name.utf8());
    return encoding == NSNoStringEncoding ? NSStringEncoding(NSISOLatin1StringEncoding) : encoding;
}

NSString zorStringWithCharacter(char16_t unit) { return std::u16string(1, unit); }

NSString zorStringWith32BitCharacter(uint32_t codePoint) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) bytes.push_back(char(codePoint >> shift));
    return zorStringWithData(NSData(bytes), NSUTF32LittleEndianStringEncoding);
}

NSString zorStringWithData(const NSData& data, NSStringEncoding encoding) {
    if (!data || !isStringEncodingAvailable(encoding)) return nullptr;
    std::string_view bytes = data.bytes();
    const ByteOrderMark mark = byteOrderMark(bytes);
    if (encoding == NSUTF8StringEncoding && mark.encoding == encoding) bytes.remove_prefix(mark.size);
    if (isUTF16(encoding)) bytes = bytes.substr(0, bytes.size() & ~size_t(1));
    std::u16string text;
    return appendDecoded(text, bytes, encoding) ? NSString(std::move(text)) : nullptr;
}

NSString zorStringWithData(const NSData& data, NSStringEncoding encoding, NSError* error) {
    NSString text = zorStringWithData(data, encoding);
    if (!text && error) {
        NSMutableDictionary info;
        if (data) info.setObject(data, NSString(ZORInputObject));
        info.setObject(NSNumber::withUnsignedInteger(encoding), NSString(ZORStringEncoding));
        *error = ZORError1(ZORStringDecodingError, std::move(info).copy());
    }
    return text;
}

NSString zorStringWithUTF8Data(const NSData& data) { return zorStringWithData(data, NSUTF8StringEncoding); }

NSString zorStringWithContentsOfFile(const NSString& path) {
    if (!path) return nullptr;
    const NSData data = NSData::dataWithContentsOfFile(path, 0, nullptr);
    if (!data) return nullptr;
    if (NSString text = zorStringWithUTF8Data(data)) return text;
    const bool isWide = isMarkedUTF16(data.bytes());
    return zorStringWithData(data, isWide ? NSUnicodeStringEncoding : NSMacOSRomanStringEncoding);
}

NSString zorStringWithFileSystemRepresentation(const char* bytes) {
    return bytes ? stringWithFileSystemRepresentation(bytes) : nullptr;
}

NSString zorStringWithFileSystemRepresentation(const char* bytes, size_t length) {
    if (!bytes) return nullptr;
    const std::string_view counted(bytes, length);
    return stringWithFileSystemRepresentation(counted.substr(0, counted.find('\0')));
}

// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORCreation.h"

#include "Platform/Foundation/NSNumber.h"
#include "Platform/Foundation/NSPathUtilities.h"
#include "ZORFoundation/Source/NSError+ZOR.h"

namespace {

bool isUTF16(NSStringEncoding encoding) {
    return encoding == NSUnicodeStringEncoding || encoding == NSUTF16BigEndianStringEncoding ||
           encoding == NSUTF16LittleEndianStringEncoding;
}

} // namespace

NSString zorStringWithData(const NSData& data, NSStringEncoding encoding) {
    if (!data || !isStringEncodingAvailable(encoding)) return nullptr;
    std::string_view bytes = data.bytes();
    if (encoding == NSUTF8StringEncoding && bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
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

NSString zorStringWithFileSystemRepresentation(const char* bytes) {
    return bytes ? stringWithFileSystemRepresentation(bytes) : nullptr;
}

NSString zorStringWithFileSystemRepresentation(const char* bytes, size_t length) {
    if (!bytes) return nullptr;
    const std::string_view counted(bytes, length);
    return stringWithFileSystemRepresentation(counted.substr(0, counted.find('\0')));
}

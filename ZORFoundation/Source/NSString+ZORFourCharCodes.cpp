// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSString+ZORFourCharCodes.h"

#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/StringFormat.h"
#include "ZORFoundation/Source/NSString+ZORCreation.h"
#include "ZORFoundation/Source/ZORPrecondition.h"

uint32_t zorFourCharCodeValue(const NSString& text) {
    if (text.length() != 4) {
        zorStopAfterReport({"ZORFoundation/Source/NSString+ZORBasics",
                            __LINE__,
                            {ZORReceiver::Kind::instance},
                            "zorFourCharCodeValue"},
                           "-[NSString(ZORFourCharCodes) zorFourCharCodeValue]", "[self length] == 4");
    }
    std::string bytes;
    if (!appendEncoded(bytes, text.text(), NSMacOSRomanStringEncoding)) return 0;
    uint32_t code = 0;
    for (char byte : bytes) code = code << 8 | static_cast<unsigned char>(byte);
    return code;
}

NSString zorStringWithFourCharCode(uint32_t code) {
    if (code == 0) return zorUnknownCode();
    std::string bytes;
    for (unsigned shift = 32; shift > 0; shift -= 8) bytes.push_back(char(code >> (shift - 8)));
    return zorStringWithData(NSData(bytes), NSMacOSRomanStringEncoding);
}

NSString zorUnknownCode() { return stringWithFormat("%c%c%c%c", 0, 0, 0, 0); }

bool zorIsUnknownCode(const NSString& text) { return text.isEqualToString(zorUnknownCode()); }

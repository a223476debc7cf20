// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Atoms/AtomText.h"

#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

#include <algorithm>

namespace {

constexpr unsigned kFirstPackedLanguage = 0x400, kUnspecifiedLanguage = 0x7FFF;

// The Macintosh code page in which a language was written.
unsigned codePageOfLanguage(unsigned language) {
    switch (language) {
    case 10:
    case 41: return 10005; // Hebrew
    case 11: return 10001; // Japanese
    case 12:
    case 20:
    case 31: return 10004; // Arabic
    case 14: return 10006; // Greek
    case 15:
    case 30: return 10079; // Icelandic
    case 17: return 10081; // Turkish
    case 18:
    case 40: return 10082; // Croatian
    case 19: return 10002; // traditional Chinese
    case 22: return 10021; // Thai
    case 23: return 10003; // Korean
    case 24:
    case 25:
    case 26:
    case 27:
    case 28:
    case 36:
    case 38:
    case 39: return 10029; // Central European
    case 32:
    case 42:
    case 43:
    case 44:
    case 45:
    case 46: return 10007; // Cyrillic
    case 33: return 10008; // simplified Chinese
    case 37: return 10010; // Romanian
    default: return 10000; // Roman
    }
}

std::u16string decoded(std::string_view bytes, NSStringEncoding encoding) {
    std::u16string text;
    appendDecoded(text, bytes, encoding);
    text.erase(std::find_if(text.rbegin(), text.rend(), [](char16_t c) { return c != 0; }).base(),
               text.end());
    return text;
}

} // namespace

std::u16string textOfUTF8(std::string_view bytes) {
    if (isUTF8(bytes)) return decoded(bytes, NSUTF8StringEncoding);
    return isMarkedUTF16(bytes) ? textOfUTF16(bytes) : decoded(bytes, NSMacOSRomanStringEncoding);
}

std::u16string textOfUTF16(std::string_view bytes) {
    return decoded(bytes.substr(0, bytes.size() & ~size_t(1)), NSUnicodeStringEncoding);
}

std::u16string textInLanguage(std::string_view bytes, unsigned language) {
    if (language >= kFirstPackedLanguage && language != kUnspecifiedLanguage)
        return isMarkedUTF16(bytes) ? textOfUTF16(bytes) : textOfUTF8(bytes);
    // Many writers say English and write UTF-8.
    if (isUTF8(bytes)) return decoded(bytes, NSUTF8StringEncoding);
    const NSStringEncoding encoding = encodingForCodePage(codePageOfLanguage(language));
    return decoded(bytes, encoding == NSNoStringEncoding ? NSMacOSRomanStringEncoding : encoding);
}

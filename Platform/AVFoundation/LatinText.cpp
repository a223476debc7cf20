// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/LatinText.h"

#include "Platform/Foundation/NSStringEncoding.h"
#include "Platform/Foundation/UnicodeText.h"

std::u16string latinText(std::string_view bytes) {
    std::u16string text;
    appendDecoded(text, bytes, isUTF8(bytes) ? NSUTF8StringEncoding : NSWindowsCP1252StringEncoding);
    return text;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSStringEncoding.h"

using namespace std::string_view_literals;

ByteOrderMark byteOrderMark(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return {NSUTF8StringEncoding, 3};
    if (bytes.starts_with("\xFE\xFF")) return {NSUTF16BigEndianStringEncoding, 2};
    if (bytes.starts_with("\xFF\xFE")) return {NSUTF16LittleEndianStringEncoding, 2};
    return {};
}

bool isMarkedUTF16(std::string_view bytes) { return byteOrderMark(bytes).size == 2; }

ByteOrderMark byteOrderMarkOfUTF32(std::string_view bytes) {
    if (bytes.starts_with("\0\0\xFE\xFF"sv)) return {NSUTF32BigEndianStringEncoding, 4};
    if (bytes.starts_with("\xFF\xFE\0\0"sv)) return {NSUTF32LittleEndianStringEncoding, 4};
    return {};
}

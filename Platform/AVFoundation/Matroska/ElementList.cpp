// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Matroska/ElementList.h"

uint64_t ElementList::takeNumber(unsigned& length, unsigned longest, bool keepsMarker) {
    length = 0;
    if (rest_.length() == 0) return 0;
    const auto first = unsigned(source_.bigEndian(rest_.begin, 1));
    unsigned width = 1;
    while (width <= longest && !(first & 0x100 >> width)) ++width;
    if (width > longest || rest_.length() < width) return 0;
    length = width;
    const uint64_t number = source_.bigEndian(rest_.begin, width);
    rest_ = rest_.part(width);
    return keepsMarker ? number : number & ((uint64_t(1) << 7 * width) - 1);
}

bool ElementList::next(Element& element) {
    unsigned width = 0;
    element.identifier = uint32_t(takeNumber(width, 4, true));
    if (width == 0) return false;
    const uint64_t length = takeNumber(width, 8, false);
    if (width == 0) return false;
    element.hasLength = length != (uint64_t(1) << 7 * width) - 1;
    element.body = element.hasLength ? rest_.part(0, length) : rest_;
    rest_ = rest_.part(element.body.length());
    return true;
}

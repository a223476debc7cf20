// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NumberText.h"

#include <charconv>
#include <cmath>

std::u16string generalNumberText(double value, int digits) {
    if (std::isnan(value)) return u"nan";
    char text[64];
    auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::general, digits);
    return std::u16string(text, result.ptr);
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/Base64.h"

#include <algorithm>

void appendBase64(std::string& out, std::string_view bytes) {
    static constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (size_t i = 0; i < bytes.size(); i += 3) {
        const size_t count = std::min(bytes.size() - i, size_t(3));
        unsigned group = 0;
        for (size_t k = 0; k < 3; ++k) group = group << 8 | (k < count ? (unsigned char)(bytes[i + k]) : 0u);
        for (size_t k = 0; k < 4; ++k) out.push_back(k <= count ? digits[group >> (18 - 6 * k) & 63] : '=');
    }
}

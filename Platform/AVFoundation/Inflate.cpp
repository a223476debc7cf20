// SPDX-License-Identifier: Apache-2.0
#include "Platform/AVFoundation/Inflate.h"

#include <algorithm>
#include <zlib.h>

std::string inflated(std::string_view stream, size_t limit) {
    std::string out;
    z_stream state{};
    if (inflateInit(&state) != Z_OK) return out;
    state.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(stream.data()));
    state.avail_in = uInt(std::min<size_t>(stream.size(), UINT32_MAX));
    int status = Z_OK;
    while (status == Z_OK && out.size() < limit) {
        char piece[16384];
        state.next_out = reinterpret_cast<Bytef*>(piece);
        state.avail_out = uInt(std::min(sizeof piece, limit - out.size()));
        status = inflate(&state, Z_NO_FLUSH);
        out.append(piece, size_t(reinterpret_cast<char*>(state.next_out) - piece));
    }
    inflateEnd(&state);
    return out;
}

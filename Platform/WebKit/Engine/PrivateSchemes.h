// SPDX-License-Identifier: Apache-2.0
//
// The engine lets a program answer requests of schemes of its own only. So that the program answers all of
// them, the part of it in the page's process gives each request a private scheme, "lkarc-https://…", which
// keeps relative URLs in framed documents working; schemes that no framed document has go behind "lkarc-x:".
#pragma once

#include <string>
#include <string_view>

namespace PrivateSchemes {

inline constexpr std::string_view kPrefix = "lkarc-";
inline constexpr std::string_view kOther = "lkarc-x:";

// Those with a private scheme of their own.
inline constexpr const char* kServed[] = {"http", "https", "file", "ftp", "x-msg", "safari-resource"};

inline std::string_view schemeOf(std::string_view url) {
    const size_t colon = url.find(':');
    return colon == std::string_view::npos ? std::string_view() : url.substr(0, colon);
}

// What the engine answers itself: it holds all that it needs.
inline bool isInternal(std::string_view url) {
    const std::string_view scheme = schemeOf(url);
    return scheme == "data" || scheme == "about" || scheme == "blob" || scheme == "javascript";
}

inline bool isPrivate(std::string_view url) { return url.substr(0, kPrefix.size()) == kPrefix; }

inline std::string privateURL(std::string_view url) {
    for (const char* scheme : kServed) {
        if (schemeOf(url) == scheme) return std::string(kPrefix).append(url);
    }
    return std::string(kOther).append(url);
}

inline std::string publicURL(std::string_view url) {
    if (url.substr(0, kOther.size()) == kOther) return std::string(url.substr(kOther.size()));
    return std::string(isPrivate(url) ? url.substr(kPrefix.size()) : url);
}

} // namespace PrivateSchemes

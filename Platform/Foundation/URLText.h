// SPDX-License-Identifier: Apache-2.0
//
// A URL's text, taken apart and put together, below NSURL and its path operations. Texts are UTF-16, bytes
// are those of file names; nothing here looks at the disk.
#pragma once

#include <string>
#include <string_view>

// Views into the text that was split, in its order; joined again they are that text.
struct URLParts {
    std::u16string_view scheme;    // with its colon, or ""
    std::u16string_view authority; // with its two slashes, or ""
    std::u16string_view path;      // percent-escaped
    std::u16string_view query;     // query and fragment with their marks

    static URLParts of(std::u16string_view url);
};

// A relative URL in its base, without "." and "..".
std::u16string resolvedURL(std::u16string_view relative, std::u16string_view base);

// Escapes every byte but ASCII letters, digits and what a path may hold as it is, "/" included.
std::string percentEscapedPath(std::string_view bytes);

// The bytes that an escaped path stands for. A percent sign without two digits stands for itself.
std::string percentDecodedPath(std::u16string_view path);

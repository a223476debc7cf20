// SPDX-License-Identifier: Apache-2.0
//
// Percent escapes of URLs: the UTF-8 bytes of a character as "%" and two hexadecimal digits each. nil in, nil
// out.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <string>
#include <string_view>

// Escapes what is illegal in URLs: all but ASCII letters and digits and !$&'()*+,-./:;=?@_~. Characters of
// `leftUnescaped` stay even so, and characters of `alsoEscaped` are escaped although they are legal. nil when
// a surrogate that has to be escaped stands alone.
NSString CFURLCreateStringByAddingPercentEscapes(const NSString& text, const NSString& leftUnescaped,
                                                 const NSString& alsoEscaped);

// Replaces escapes by their characters, but for those of characters in `leftEscaped`; with nil there, none is
// replaced. nil when a "%" begins no escape or the bytes of escapes are no UTF-8.
NSString CFURLCreateStringByReplacingPercentEscapes(const NSString& text, const NSString& leftEscaped);

// Bytes, which need not be UTF-8: all but ASCII letters, digits and the `literal` ones are escaped.
std::string percentEscaped(std::string_view bytes, std::string_view literal);

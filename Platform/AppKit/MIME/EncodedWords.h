// SPDX-License-Identifier: Apache-2.0
//
// Text in the headers of messages, where anything but ASCII is written as words in ASCII that name their
// encoding: "=?utf-8?Q?K=C3=B6ln?=".
#pragma once

#include <string>
#include <string_view>

// The text of a field's value. What is no such word, or names no known encoding, stands for itself: as UTF-8,
// and if it is none, in the code page 1252.
std::u16string textOfHeaderValue(std::string_view value);

// The text of a parameter that names its encoding in its own way: "utf-8''K%C3%B6ln".
std::u16string textOfExtendedParameter(std::string_view value);

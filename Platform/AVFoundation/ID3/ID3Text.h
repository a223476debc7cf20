// SPDX-License-Identifier: Apache-2.0
//
// The text of ID3 frames.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// The strings of a text frame's body, which begins with a byte for the encoding: several of them are
// separated by nulls, and nulls may follow the last one. Nothing for an encoding that does not exist.
std::vector<std::u16string> stringsOfTextFrame(std::string_view body);

// The bytes without the nulls that were put behind each FF, so that no decoder takes them for sound.
std::string withoutUnsynchronisation(std::string_view bytes);

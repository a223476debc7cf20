// SPDX-License-Identifier: Apache-2.0
//
// Text of formats that know no other encoding than ISO Latin 1.
#pragma once

#include <string>
#include <string_view>

// UTF-8 where the bytes are valid UTF-8, which many writers put there; else Latin 1 as Windows extends it.
std::u16string latinText(std::string_view bytes);

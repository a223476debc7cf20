// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Of one document. Far more than anyone gives; further ones are left out.
constexpr size_t kKeywordLimit = 10'000;

// The keywords that documents hold in one text, parted by any of the separators. Blanks around a keyword do
// not belong to it, and empty ones are none.
std::vector<std::u16string> splitKeywords(std::u16string_view text, std::u16string_view separators = u",;");

// SPDX-License-Identifier: Apache-2.0
//
// The wall of the module "Collation", which has the rules of all languages for sorting.
#pragma once

#include <string_view>

// Negative, 0 or positive. `locale` is a language and, perhaps, a country: "sv_SE"; "" for none.
using CollationModuleEntry = int (*)(std::u16string_view a, std::u16string_view b,
                                     const char* locale) noexcept;

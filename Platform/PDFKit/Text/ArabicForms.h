// SPDX-License-Identifier: Apache-2.0
//
// Arabic letters in the shapes that they have within words. Fonts know shapes; text is letters.
#pragma once

#include <string_view>

// The letters of a shape, two for lam with alef; empty for what is no such shape.
std::u16string_view lettersOfArabicForm(char16_t form);

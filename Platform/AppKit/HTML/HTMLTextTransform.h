// SPDX-License-Identifier: Apache-2.0
//
// The letter case that a style asks for. Knows the alphabets with case of Europe and the Caucasus; other
// letters stay as they are.
#pragma once

#include <cstdint>
#include <string>

enum class HTMLTextTransform : uint8_t { none, uppercase, lowercase, capitalize };

// Transforms the end of a text, from `begin` on; what stands before tells whether a word begins there.
void transformText(std::u16string& text, size_t begin, HTMLTextTransform transform);

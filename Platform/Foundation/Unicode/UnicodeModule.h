// SPDX-License-Identifier: Apache-2.0
//
// The functions of the module. It resolves nothing from the program that loads it but the C library.
#pragma once

#include "Platform/Foundation/Unicode.h"

UnicodeRange clusterAround(std::u16string_view text, size_t index) noexcept;
std::u16string folded(std::u16string_view text, unsigned options);
UnicodeRange findFolded(std::u16string_view text, std::u16string_view wanted, unsigned options);
bool breakWords(std::u16string_view text, WordSink sink, void* context);

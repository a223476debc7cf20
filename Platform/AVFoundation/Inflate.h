// SPDX-License-Identifier: Apache-2.0
//
// Metadata that was compressed.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// What the zlib stream inflates to, but no more than `limit` bytes; of a damaged one what stands before the
// damage.
std::string inflated(std::string_view stream, size_t limit);

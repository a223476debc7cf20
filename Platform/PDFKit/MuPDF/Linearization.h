// SPDX-License-Identifier: Apache-2.0
//
// What a linearized document says at its front, before anything that may be encrypted.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// The number of pages. Nothing for a document that is not linearized, or no longer: one that was changed
// since is longer than it says there.
std::optional<size_t> linearizedPageCount(std::string_view bytes);

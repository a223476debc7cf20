// SPDX-License-Identifier: Apache-2.0
//
// Files that were compressed alone, with gzip, bzip2, xz (also its predecessor lzma) or zstd. The libraries
// lie in the module "Compression".
#pragma once

#include "Platform/Foundation/Deadline.h"

#include <string>
#include <string_view>

enum class DecompressionStatus { done, wrongKind, outOfMemory };

// What was compressed, all pieces one behind the other; of a damaged file what stands before the damage, and
// no more than 256 MiB. Leaves off when the deadline passes.
DecompressionStatus decompress(std::string_view bytes, Deadline& deadline, std::string& all);

// The entry of the module.
using CompressionModuleEntry = DecompressionStatus (*)(std::string_view bytes, Deadline& deadline,
                                                       std::string& all);

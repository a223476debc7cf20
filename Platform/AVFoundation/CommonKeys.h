// SPDX-License-Identifier: Apache-2.0
//
// Which common key the keys of the other spaces stand for.
#pragma once

#include "Platform/AVFoundation/MediaReader.h"

#include <string_view>

// The common key of a key in its space, or null when it has none.
const char16_t* commonKeyForKey(MediaKeySpace space, std::string_view key);

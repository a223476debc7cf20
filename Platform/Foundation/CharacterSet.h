// SPDX-License-Identifier: Apache-2.0
//
// The encoding of text that says nothing of it.
#pragma once

#include "Platform/Foundation/NSStringEncoding.h"

#include <string>
#include <string_view>

// By byte order marks, by being valid UTF-8 or UTF-16 of European text, and else by how often which bytes
// stand together in which language. Where that is not clear, the code page 1252. The module "CharacterSet" is
// loaded for the last step alone; without it there is none.
NSStringEncoding likelyEncoding(std::string_view bytes);

// The entry of that module: the registered name of the likeliest encoding, and how sure it is, 0 to 100.
using CharacterSetModuleEntry = bool (*)(std::string_view bytes, std::string& name, int& confidence);

// SPDX-License-Identifier: Apache-2.0
//
// Texts that are made of lines.
#pragma once

#include "Platform/Foundation/NSString.h"

#include <vector>

// The lines with a line feed between neighbours and none at the end.
NSString joinedLines(const std::vector<NSString>& lines);

// SPDX-License-Identifier: Apache-2.0
//
// The old-style text that containers print of themselves and of what they hold.
#pragma once

#include "Platform/Foundation/NSObject.h"

#include <string>

// An element, key or value inside a container at nesting `level`: containers as they print themselves one
// level deeper, data as it is, all else quoted unless it is plain letters and digits.
void appendElementText(std::u16string& out, const NSObject& element, unsigned level);

// The indentation of a line at `level`.
void appendIndent(std::u16string& out, unsigned level);

// SPDX-License-Identifier: Apache-2.0
//
// A color, opaque, by its parts of red, green and blue, each from 0 to 1.
#pragma once

#include "Platform/Foundation/NSObject.h"

class NSColor : public NSObject {
public:
    NSColor() = default;
    NSColor(double red, double green, double blue);
};

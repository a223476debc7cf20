// SPDX-License-Identifier: Apache-2.0
//
// The properties of images that a record holds.
#pragma once

#include "Platform/Foundation/NSArray.h"
#include "Platform/Foundation/NSDictionary.h"

#include <vector>

// Appends the strings that the dictionary has under the keys, in the order of the keys: a string itself, of
// an array its strings. Other values are passed over.
void addPropertiesWithKeys(std::vector<NSString>& lines, const NSDictionary& dictionary, const NSArray& keys);

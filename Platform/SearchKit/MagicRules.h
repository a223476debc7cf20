// SPDX-License-Identifier: Apache-2.0
//
// Rules that tell a file's kind by bytes at offsets, as the shared database of kinds keeps them in its file
// "magic": sections with a priority and a type, and in each a tree of rules by their indents.
#pragma once

#include <string>
#include <string_view>

struct MagicMatch {
    int priority = -1; // none; otherwise 0 to 100
    std::string type;
};

// The match of the highest priority; of several the first. A damaged section ends the reading.
MagicMatch findMagic(std::string_view rules, std::string_view start);

// SPDX-License-Identifier: Apache-2.0
//
// Standard output where it is a terminal that a person looks at.
#pragma once

#include <string>

// Whether colours are seen and wanted: a terminal that is not dumb, and no NO_COLOR in the environment.
bool terminalTakesColours();

// Shows a text through the user's pager (PAGER, else less) when standard output is a terminal that is too
// small for it. False when it was not shown: it fits, nobody looks, PAGER is empty or cat, or there is no
// such program.
bool showThroughPager(const std::string& text);

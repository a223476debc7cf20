// SPDX-License-Identifier: Apache-2.0
//
// What code that a document has taken over would try. For tests only.
#pragma once

#include <string>

// Does what a command says: "connect", "resolve", "read PATH", "write PATH", "make PATH", "remove PATH",
// "execute PATH", "fork", "breed", "trace", "signal", "print", "exhaust memory", "fill memory", "loop",
// "recurse", "abort". Answers what came of it, "done" or the system's reason, as far as it returns at all.
std::string attempt(const std::string& command);

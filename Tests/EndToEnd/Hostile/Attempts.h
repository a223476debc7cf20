// SPDX-License-Identifier: Apache-2.0
//
// What code that a document has taken over would try. For tests only.
#pragma once

#include <string>

// Does what a command says and answers what came of it, "done" or the system's reason, as far as it returns
// at all. The commands are the verbs of attempt() in the source, some of them with a path behind.
std::string attempt(const std::string& command);

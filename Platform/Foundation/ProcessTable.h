// SPDX-License-Identifier: Apache-2.0
//
// The system's table of processes.
#pragma once

#include <string_view>
#include <sys/types.h>

// Sets `found` to whether a process of the real user has the command name, of which at most 16 bytes are
// known. False when the table cannot be read.
bool findProcessOfUser(uid_t user, std::string_view name, bool& found);

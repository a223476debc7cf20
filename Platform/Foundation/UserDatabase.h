// SPDX-License-Identifier: Apache-2.0
//
// The system's entries for its users, as names and homes in file-system bytes. Safe on any thread.
#pragma once

#include <optional>
#include <string>
#include <sys/types.h>

struct UserEntry {
    std::string name, directory;
};

// None when there is no such user, with 0 in `systemErrno`, or when the database cannot be asked.
std::optional<UserEntry> userWithID(uid_t id, int* systemErrno = nullptr);
std::optional<UserEntry> userWithName(const std::string& name);

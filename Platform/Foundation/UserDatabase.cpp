// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/UserDatabase.h"

#include <cerrno>
#include <pwd.h>
#include <vector>

namespace {

// `ask` is one of the re-entrant calls with its key bound; it says with ERANGE that it needs more room.
template <class Ask>
std::optional<UserEntry> entryFrom(Ask ask, int* systemErrno) {
    constexpr size_t kMostRoom = 1 << 20;
    int failure = ERANGE;
    for (std::vector<char> room(1024); failure == ERANGE && room.size() <= kMostRoom;
         room.resize(room.size() * 4)) {
        passwd entry{};
        passwd* found = nullptr;
        failure = ask(&entry, room.data(), room.size(), &found);
        if (failure == 0 && found) return UserEntry{found->pw_name, found->pw_dir};
    }
    if (systemErrno) *systemErrno = failure;
    return std::nullopt;
}

} // namespace

std::optional<UserEntry> userWithID(uid_t id, int* systemErrno) {
    return entryFrom([id](passwd* entry, char* room, size_t size,
                          passwd** found) { return getpwuid_r(id, entry, room, size, found); },
                     systemErrno);
}

std::optional<UserEntry> userWithName(const std::string& name) {
    return entryFrom([&name](passwd* entry, char* room, size_t size,
                             passwd** found) { return getpwnam_r(name.c_str(), entry, room, size, found); },
                     nullptr);
}

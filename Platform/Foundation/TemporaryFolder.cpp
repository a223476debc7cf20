// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/TemporaryFolder.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ftw.h>
#include <unistd.h>

namespace {

constexpr int kMostOpenFolders = 16;

// What cannot be removed is left to the answer for the whole.
int removeEntry(const char* path, const struct stat*, int, FTW*) {
    remove(path);
    return 0;
}

} // namespace

std::string makeTemporaryFolder(const std::string& parent) {
    std::string folder = parent + "/texttool-XXXXXX";
    return mkdtemp(folder.data()) ? folder : "";
}

bool removeFolder(const std::string& folder) {
    nftw(folder.c_str(), removeEntry, kMostOpenFolders, FTW_DEPTH | FTW_PHYS);
    return access(folder.c_str(), F_OK) != 0 && errno == ENOENT;
}

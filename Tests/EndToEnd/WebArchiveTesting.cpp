// SPDX-License-Identifier: Apache-2.0
#include "Tests/EndToEnd/WebArchiveTesting.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

// "" for what has gone.
std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
}

} // namespace

std::vector<pid_t> processesWith(const std::string& variable, const std::string& name) {
    std::vector<pid_t> found;
    std::error_code gone; // processes end while they are looked at
    for (const auto& entry : std::filesystem::directory_iterator("/proc", gone)) {
        const pid_t process = atoi(entry.path().filename().c_str());
        if (process == 0 || process == getpid()) continue;
        const std::string environment = contentsOf(entry.path() / "environ");
        if (environment.find(variable) == std::string::npos) continue;
        if (name.empty() || contentsOf(entry.path() / "comm") == name.substr(0, 15) + "\n")
            found.push_back(process);
    }
    return found;
}

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/BaseFolders.h"

#include <algorithm>
#include <cstdlib>

namespace {

std::string absoluteOr(const char* variable, const std::string& otherwise) {
    const char* value = getenv(variable);
    return value && value[0] == '/' ? value : otherwise;
}

std::vector<std::string> baseFolders(const char* userVariable, const char* userDefault,
                                     const char* systemVariable, const char* systemDefault) {
    std::vector<std::string> folders;
    const std::string home = absoluteOr("HOME", "");
    const std::string user = absoluteOr(userVariable, home.empty() ? "" : home + userDefault);
    if (!user.empty()) folders.push_back(user);
    const char* listed = getenv(systemVariable);
    const std::string system = listed && *listed ? listed : systemDefault;
    for (size_t at = 0; at <= system.size();) {
        const size_t end = std::min(system.find(':', at), system.size());
        if (end > at && system[at] == '/') folders.push_back(system.substr(at, end - at));
        at = end + 1;
    }
    return folders;
}

} // namespace

std::vector<std::string> configurationFolders() {
    return baseFolders("XDG_CONFIG_HOME", "/.config", "XDG_CONFIG_DIRS", "/etc/xdg");
}

std::vector<std::string> dataFolders() {
    return baseFolders("XDG_DATA_HOME", "/.local/share", "XDG_DATA_DIRS", "/usr/local/share:/usr/share");
}

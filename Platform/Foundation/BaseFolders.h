// SPDX-License-Identifier: Apache-2.0
//
// Where a user's and the system's files of a kind are, the user's first: absolute paths, in bytes.
#pragma once

#include <string>
#include <vector>

// XDG_CONFIG_HOME (~/.config), then XDG_CONFIG_DIRS (/etc/xdg).
std::vector<std::string> configurationFolders();

// XDG_DATA_HOME (~/.local/share), then XDG_DATA_DIRS (/usr/local/share, /usr/share).
std::vector<std::string> dataFolders();

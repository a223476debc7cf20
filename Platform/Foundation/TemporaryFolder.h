// SPDX-License-Identifier: Apache-2.0
//
// Folders for what is gone again soon.
#pragma once

#include <string>

// A new folder in this one, for this user alone; "" and errno when there can be none.
std::string makeTemporaryFolder(const std::string& parent);

// Removes a folder with all that it holds, links themselves and not what they lead to. False when something
// is left.
bool removeFolder(const std::string& folder);

// SPDX-License-Identifier: Apache-2.0
//
// Volumes: directories that something is mounted on, and the root.
#pragma once

#include <string>

// False for anything but an existing directory; a link to a volume is none.
bool isVolume(const std::string& path);

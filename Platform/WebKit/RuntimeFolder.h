// SPDX-License-Identifier: Apache-2.0
//
// A folder for what the engine's sandbox writes down of running programs. It goes when this process ends,
// however that comes: a process of its own waits for that, and removes it.
#pragma once

#include "Platform/Foundation/FileDescriptor.h"

#include <string>

class RuntimeFolder {
public:
    // In the folder for temporary files, or in another that everybody may write to; readable by this user
    // alone.
    RuntimeFolder();

    // "" when there is none to be had.
    const std::string& path() const { return path_; }

private:
    std::string path_;
    FileDescriptor life_; // the other end sees it closed
};

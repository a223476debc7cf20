// SPDX-License-Identifier: Apache-2.0
//
// A file that is either what it was or the whole of what was written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

// Finds out how the file is to be written when it is made, so that writing asks for no memory and may be done
// by a signal handler.
class AtomicFile {
public:
    explicit AtomicFile(const std::string& path);

    // Puts a new file in the place of the one that the path's links lead to, with that one's permissions, or
    // with those that the process's mask leaves. A pipe or a device, which cannot be exchanged, is written
    // to. 0 or the system's error: then nothing has changed and nothing is left behind.
    int write(std::string_view bytes) const;

    // Where the file system is changed: the folder of the file, or the file itself when it cannot be
    // exchanged.
    std::string place() const;

private:
    std::string path_, temporary_; // none when the file is written to
    std::optional<mode_t> mode_;
    int error_ = 0;
};

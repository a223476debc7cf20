// SPDX-License-Identifier: Apache-2.0
//
// What a debugger sees of a 64-bit program: its sections, and what its exported symbols hold in a running
// process.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

class ElfFile {
public:
    explicit ElfFile(const std::string& path);

    // The section's bytes, or nothing when there is no such section.
    std::optional<std::string> section(std::string_view name) const;

    // The text that an exported `const char*` variable points to in a process that runs this program; nothing
    // when there is no such symbol or the pointer is null.
    std::optional<std::string> textOfPointer(std::string_view symbol, pid_t process) const;

private:
    uint64_t symbolAddress(std::string_view name) const; // 0 for none

    std::string path_, bytes_;
};

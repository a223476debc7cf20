// SPDX-License-Identifier: Apache-2.0
//
// The output of a program that may be in any state of health.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

struct ProgramLimits {
    std::chrono::seconds time{30};          // of wall and of processor time
    uint64_t memory = uint64_t(2) << 30;    // bytes of address space
    uint64_t written = uint64_t(256) << 20; // bytes, of each file that it writes
    size_t output = size_t(64) << 20;       // bytes
    std::string folder;                     // for its temporary files; in a sandbox it can write nowhere else
};

// Runs a program, without a shell, in a process group of its own, with nothing on its standard input and its
// complaints thrown away, and ends the whole group afterwards. True when it ended by itself with status 0; if
// not, `why` says what became of it. A name without a slash is looked for in PATH.
bool readProgramOutput(const std::vector<std::string>& command, const ProgramLimits& limits,
                       std::string& output, std::string& why);

// The folders in which programs are looked for.
std::vector<std::string> programFolders();

// The file of a program as the above finds it; "" when there is none.
std::string programFile(const std::string& name);

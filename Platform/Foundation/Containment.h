// SPDX-License-Identifier: Apache-2.0
//
// Work by foreign code on hostile bytes, done in a copy of the process: whatever becomes of the copy, this
// process goes on.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

struct ContainmentLimits {
    std::chrono::milliseconds processorTime{500}; // whatever else the machine does
    std::chrono::seconds wallTime{10};
    uint64_t memory = 512 << 20; // bytes of data, more than there is already; mapped files do not count
    size_t answer = 64 << 20;    // bytes
};

// Does the work in a child process, which prints nothing and is gone in the end. True and in `answer`
// what the work returned; false when the child crashed, took more than it may, or could not be started.
bool runContained(const std::function<std::string()>& work, std::string& answer,
                  const ContainmentLimits& limits = ContainmentLimits());

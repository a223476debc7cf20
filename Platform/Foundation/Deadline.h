// SPDX-License-Identifier: Apache-2.0
//
// A point in time after which a piece of work stops and gives what it has.
#pragma once

#include <chrono>

// Cheap to ask in inner loops: the clock is read once in every 256 questions. Not thread-safe; each piece of
// work has its own. Once passed, a deadline stays passed.
class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    // Never passes.
    Deadline() : end_(Clock::time_point::max()) {}

    explicit Deadline(std::chrono::duration<double> timeout)
        : end_(Clock::now() + std::chrono::duration_cast<Clock::duration>(timeout)) {}

    bool passed() {
        if (!passed_ && (++questions_ & 0xFF) == 0) passed_ = Clock::now() >= end_;
        return passed_;
    }

private:
    Clock::time_point end_;
    unsigned questions_ = 0;
    bool passed_ = false;
};

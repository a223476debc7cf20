// SPDX-License-Identifier: Apache-2.0
//
// How long a document may keep the processor busy. Measured in processor time, so that a busy machine cuts
// nothing off and the same document always gives the same text.
#pragma once

#include <cstddef>
#include <ctime>

class WorkLimit {
public:
    // For a document of so many bytes: a long document takes long; a small one that does is up to no good.
    explicit WorkLimit(size_t documentSize)
        : end_(now() + kSeconds + double(documentSize) * kSecondsPerByte) {}

    // Begins a page, which may take most of what is left: a bad one must leave something to the others.
    void beginPage() {
        double time = now();
        pageEnd_ = time + (end_ - time) * 3 / 4;
        passed_ = time >= end_;
    }

    // Whether the page's time is up. Cheap enough for inner loops.
    bool passed() {
        if (!passed_ && (++questions_ & 0xFF) == 0) passed_ = now() >= pageEnd_;
        return passed_;
    }

private:
    static constexpr double kSeconds = 1.2, kSecondsPerByte = 0.8e-6;

    static double now() {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
    }

    double end_, pageEnd_ = 0;
    unsigned questions_ = 0;
    bool passed_ = false;
};

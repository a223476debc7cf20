// SPDX-License-Identifier: Apache-2.0
//
// How long a document may keep the processor busy, and how many glyphs it may draw: a long document takes
// long; a small one that does is up to no good. Measured in processor time, so that a busy machine cuts
// nothing off.
#pragma once

#include <cstddef>
#include <ctime>

class WorkLimit {
public:
    // For a document of so many bytes.
    explicit WorkLimit(size_t documentSize)
        : end_(now() + kSeconds + double(documentSize) * kSecondsPerByte),
          glyphsLeft_(kGlyphs + documentSize * kGlyphsPerByte) {}

    // Begins a page, which may take most of what is left: a bad one must leave something to the others. False
    // when nothing is left.
    bool beginPage() {
        double time = now();
        pageEnd_ = time + (end_ - time) * 3 / 4;
        passed_ = time >= end_;
        return !passed_;
    }

    // Whether the page's time is up. Cheap enough for inner loops, since few of the questions read the clock.
    bool passed() { return (++questions_ & 0xFF) == 0 ? passedByClock() : passed_; }

    // The same at the price of reading the clock, before work that may be long.
    bool passedByClock() {
        if (!passed_) passed_ = now() >= pageEnd_;
        return passed_;
    }

    // Whether another glyph may be drawn.
    bool takeGlyph() {
        if (glyphsLeft_ == 0) passed_ = true;
        if (passed()) return false;
        --glyphsLeft_;
        return true;
    }

private:
    static constexpr double kSeconds = 1, kSecondsPerByte = 0.5e-6;
    static constexpr size_t kGlyphs = 2'000'000, kGlyphsPerByte = 32;

    // Processor time of the process so far, in seconds.
    static double now() {
        timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
    }

    double end_, pageEnd_ = 0;
    size_t glyphsLeft_;
    unsigned questions_ = 0;
    bool passed_ = false;
};

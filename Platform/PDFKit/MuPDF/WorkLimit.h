// SPDX-License-Identifier: Apache-2.0
//
// How long a document may keep the processor busy, and how much text it may give: a long document takes long;
// a small one that does is up to no good. Time is processor time, so that a busy machine cuts nothing off.
//
// A document may take as long as its size allows. Its pages have to earn that time: each brings a little, and
// more the longer its content is and the more fonts it needs. So a few bytes that thousands of pages draw are
// soon at their end, however much the pages themselves make of the file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>

class WorkLimit {
public:
    // For a document of so many bytes, from now on.
    explicit WorkLimit(size_t documentSize)
        : latest_(now() + kSeconds + double(documentSize) * kSecondsPerByte), end_(latest_),
          textLeft_(kText + documentSize * kTextPerByte) {}

    // What came before was opening the document; now its pages have to earn their time.
    void beginPages() { end_ = std::min(latest_, now() + kSeconds); }

    // Begins a page, which may take most of what is left: a bad one must leave something to the others. False
    // when nothing is left.
    bool beginPage() {
        if (isOver()) return false;
        earn(kSecondsPerPage);
        double time = now();
        pageEnd_ = time + (end_ - time) * 3 / 4;
        passed_ = false;
        return true;
    }

    // For content that takes so many bytes in the file.
    void earnContent(size_t bytes) { earn(double(bytes) * kSecondsPerContentByte); }
    // For a font that had to be loaded.
    void earnFont() { earn(kSecondsPerFont); }

    // Whether the page's time is up. Cheap enough for inner loops, since few of the questions read the clock.
    bool passed() { return (++questions_ & 0xFF) == 0 ? passedByClock() : passed_; }

    // The same at the price of reading the clock, before work that may be long.
    bool passedByClock() {
        if (!passed_) passed_ = textLeft_ == 0 || now() >= pageEnd_;
        return passed_;
    }

    // Whether the whole document's time or text is used up.
    bool isOver() const { return textLeft_ == 0 || now() >= end_; }

    // Whether so many more units of text may be given. What says nothing counts as one.
    bool takeText(size_t units) {
        units = std::max<size_t>(units, 1);
        bool enough = units <= textLeft_;
        textLeft_ = enough ? textLeft_ - units : 0;
        passed_ |= !enough;
        return enough;
    }

private:
    static constexpr double kSeconds = 0.8, kSecondsPerByte = 0.7e-6;
    static constexpr double kSecondsPerPage = 1e-3, kSecondsPerContentByte = 1.5e-6, kSecondsPerFont = 4e-3;
    static constexpr size_t kText = 2'000'000, kTextPerByte = 16;

    void earn(double seconds) {
        double more = std::min(seconds, latest_ - end_);
        end_ += more;
        pageEnd_ += more;
    }

    static timespec read(clockid_t clock) {
        timespec time{};
        clock_gettime(clock, &time);
        return time;
    }

    // Processor time of the process so far, in seconds. Asking for it is a call into the kernel, so that is
    // done only when the clock on the wall, which is there to be read, has moved.
    double now() const {
        timespec wall = read(CLOCK_MONOTONIC_COARSE);
        if (wall.tv_nsec != wallRead_) {
            wallRead_ = wall.tv_nsec;
            timespec time = read(CLOCK_PROCESS_CPUTIME_ID);
            time_ = double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
        }
        return time_;
    }

    mutable long wallRead_ = -1;
    mutable double time_ = 0;
    const double latest_;
    double end_, pageEnd_ = 0;
    size_t textLeft_; // units
    unsigned questions_ = 0;
    bool passed_ = false;
};

// SPDX-License-Identifier: Apache-2.0
//
// A page's process ends when the page has taken more memory than any honest one needs, before the machine
// suffers from it. Limits of the kernel do not fit: the engine reserves far more room than it ever uses.
#pragma once

#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

class MemoryWatch {
public:
    // For the rest of the process's life. Not a matter of the page's own thread, which may be in a loop.
    static void start() {
        const int statistics = open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
        if (statistics < 0) return;
        std::thread([statistics] {
            while (residentPages(statistics) < kMostBytes / size_t(sysconf(_SC_PAGESIZE)))
                std::this_thread::sleep_for(kStep);
            _exit(1);
        }).detach();
    }

private:
    // A page of 30 MB takes half of it.
    static constexpr size_t kMostBytes = size_t(2) << 30;
    static constexpr std::chrono::milliseconds kStep{50};

    static size_t residentPages(int statistics) {
        char line[128] = {};
        size_t all = 0, resident = 0;
        if (pread(statistics, line, sizeof line - 1, 0) > 0) sscanf(line, "%zu %zu", &all, &resident);
        return resident;
    }
};

// SPDX-License-Identifier: Apache-2.0
#include "Platform/Foundation/NSRunLoop.h"

#include "Platform/Foundation/NSThread.h"

#include <utility>

NSRunLoop& NSRunLoop::currentRunLoop() {
    static NSRunLoop loop;
    return loop;
}

void NSRunLoop::runUntilDate(const NSDate& date) {
    const double end = date.timeIntervalSinceReferenceDate();
    if (runner_) {
        runner_(end);
    } else if (const double left = end - NSDate::now().timeIntervalSinceReferenceDate(); left > 0) {
        NSThread::sleepForTimeInterval(left);
    }
}

NSRunLoop::Runner NSRunLoop::setRunner(Runner runner) { return std::exchange(runner_, runner); }

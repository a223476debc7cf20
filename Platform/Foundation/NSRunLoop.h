// SPDX-License-Identifier: Apache-2.0
//
// Waiting for events. Whoever has events to deliver, as the web engine has, gives the loop the function that
// delivers them; without one there is nothing to do but to wait.
#pragma once

#include "Platform/Foundation/NSDate.h"

class NSRunLoop {
public:
    // Delivers events until the time, in seconds since the reference date, has come; those that are there
    // already are delivered also when it has passed.
    using Runner = void (*)(double referenceTime);

    // Of the main thread, the only one that has a loop.
    static NSRunLoop& currentRunLoop();

    void runUntilDate(const NSDate& date);

    // Answers the one before; null waits without events.
    Runner setRunner(Runner runner);

private:
    Runner runner_ = nullptr;
};

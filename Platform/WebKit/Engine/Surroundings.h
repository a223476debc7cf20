// SPDX-License-Identifier: Apache-2.0
//
// The toolkit under the engine: started quietly, run by the run loop, and left without ceremony.
#pragma once

#include "Platform/WebKit/WebEngine.h"

#include <functional>

// False when the display cannot be used. From then on the run loop delivers the toolkit's events.
bool startToolkit(const WebEngineSurroundings& where);

// A folder of libraries that processes started from now on find before those of the system.
void putLibrariesFirst(const std::string& folder);

// Delivers events until the reference time, at most one round of them when it has passed.
void runToolkitUntil(double referenceTime);

// How often that was done: what was true of a page holds until the next time.
unsigned long toolkitRounds();

// Delivers events until it is done, or for that many seconds. This is no round.
void waitForToolkit(double seconds, const std::function<bool()>& isDone);

// SPDX-License-Identifier: Apache-2.0
//
// Threads that nobody waits for.
#pragma once

#include "Platform/Foundation/NSString.h"

namespace NSThread {

// Starts `body` with a copy of `argument` on a thread of its own. When the system gives no thread there is
// one log line and nothing else happens: what runs aside must not cost the work at hand.
void detachNewThread(void (*body)(const NSString& argument), const NSString& argument);

// Names the current thread, as debuggers and thread listings show it: the first 15 bytes of the name, cut
// between characters.
void setName(const NSString& name);

void sleepForTimeInterval(double seconds);

} // namespace NSThread

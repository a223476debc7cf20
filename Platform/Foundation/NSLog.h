// SPDX-License-Identifier: Apache-2.0
//
// The system log: one line on standard error in the platform's form (local time with microseconds and zone,
// process name, process and thread number), and the same text to syslog. Safe from every thread; lines do not
// interleave.
#pragma once

#include "Platform/Foundation/NSString.h"

void NSLog(const NSString& message);

// Opens the way to the system log, for a process that soon may open nothing any more.
void NSLogOpen();

// SPDX-License-Identifier: Apache-2.0
//
// The system log: one line on standard error in the platform's form (local time with microseconds and zone,
// process name, process and thread number), and the same text to the system's journal, or to syslog where
// there is none. Safe from every thread; lines do not interleave.
#pragma once

#include "Platform/Foundation/NSString.h"

void NSLog(const NSString& message);

// A field that the journal keeps with each further text, such as the document that the process reads. Names
// are capital letters and underscores. To be set before other threads log.
void setLogField(const std::string& name, const NSString& value);

// Opens the way to the journal or the system log, for a process that soon may open nothing any more.
void NSLogOpen();

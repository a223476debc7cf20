// SPDX-License-Identifier: Apache-2.0
//
// What a crash leaves behind: a text that debuggers and core dumps show under a known name, and one line on
// standard error before the signal takes its course.
#pragma once

extern "C" {
// NUL-terminated text that says what the process was at, or null. Set by whoever knows; must stay valid.
extern const char* __crashreporter_info__;
}

// From here on a fatal signal writes one line with the annotation to standard error. The signal then ends the
// process as it would have, core dump included.
void installCrashReporter();

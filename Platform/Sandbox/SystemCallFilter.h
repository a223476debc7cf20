// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Sandbox/Sandbox.h"

// Takes all system calls but these from this thread and what it will start. False when the kernel has no
// seccomp, or there is no filter for this processor.
bool filterSystemCalls(SystemCalls calls);

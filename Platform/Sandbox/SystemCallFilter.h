// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Sandbox/Sandbox.h"

// Takes all system calls but these from this thread and what it will start.
Wall filterSystemCalls(SystemCalls calls);

// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Platform/Sandbox/Sandbox.h"

// Closes all files to this thread and what it will start, but for those of the profile, and with them TCP
// and, where the kernel can do it, signals to processes outside and sockets without a file.
Wall closeFilesBut(const SandboxProfile& profile);

// Closes all files to writing, and all folders to changes.
Wall closeAllToWriting();

// SPDX-License-Identifier: Apache-2.0
//
// The walls around the reading of one document: what the process may touch, and how much it may take.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/Sandbox/Sandbox.h"

// Shuts the process in with a document that is to be read with these system calls. To be called once the
// request is known, before its first byte is read and before any thread is started. Past the time limit the
// process ends with a record of its own accord; past the others as reportWantOfMemory and limitedRecord say.
void confine(SystemCalls calls, const NSString& path);

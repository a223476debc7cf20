// SPDX-License-Identifier: Apache-2.0
//
// Data into files.
#pragma once

#include "Platform/Foundation/NSData.h"
#include "Platform/Foundation/NSError.h"
#include "Platform/Foundation/NSURL.h"

// Replaces the file, or makes it: it is the old one or the whole new one at every instant. On failure the
// platform's error, which knows the path, with a stack frame; Cocoa 518 for the URL of no file. nil data are
// ZORRequirementFailedError.
bool zorWriteToURL(const NSData& data, const NSURL& url, NSError* error);

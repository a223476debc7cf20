// SPDX-License-Identifier: Apache-2.0
//
// The sentences that the Cocoa error domain has for its codes.
#pragma once

#include "Platform/Foundation/NSDictionary.h"
#include "Platform/Foundation/NSString.h"

// nil when the domain has no sentence for the code. The path of the user information is named in it.
NSString cocoaDescription(int64_t code, const NSDictionary& userInfo);

// nil when the domain has no reason for the code.
NSString cocoaFailureReason(int64_t code);

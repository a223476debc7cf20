// SPDX-License-Identifier: Apache-2.0
//
// How a wrapper of ZORPOSIX fails.
#pragma once

#include "ZORFoundation/Source/NSError+ZOR.h"

// The wrapper's full name and a line in it.
struct ZORStackFrame {
    const char* method;
    unsigned long line;
};

// Puts what `build` makes, with the frame, into the slot, if there is one. Always false.
template <class Build>
bool reportFailure(NSError* slot, ZORStackFrame frame, Build build) {
    if (slot) *slot = zorErrorByAddingStackFrame(build(), frame.method, frame.line);
    return false;
}

inline bool reportMissing(NSError* slot, const char16_t* argument, ZORStackFrame frame) {
    return reportFailure(slot, frame, [&] { return zorRequirementFailedError(argument); });
}

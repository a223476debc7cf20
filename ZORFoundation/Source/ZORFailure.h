// SPDX-License-Identifier: Apache-2.0
//
// How methods fail through an optional slot.
#pragma once

#include "ZORFoundation/Source/NSError+ZOR.h"

// A method's full name and a line in it.
struct ZORStackFrame {
    const char* method;
    unsigned long line;
};

// To the error that stands in the slot, if there is one.
inline void addFrame(NSError* slot, ZORStackFrame frame) {
    if (slot) *slot = zorErrorByAddingStackFrame(*slot, frame.method, frame.line);
}

// Puts what `build` makes, with the frame, into the slot, if there is one. Always false.
template <class Build>
bool reportFailure(NSError* slot, ZORStackFrame frame, Build build) {
    if (slot) *slot = zorErrorByAddingStackFrame(build(), frame.method, frame.line);
    return false;
}

inline bool reportMissing(NSError* slot, const char16_t* argument, ZORStackFrame frame) {
    return reportFailure(slot, frame, [&] { return zorRequirementFailedError(argument); });
}

// SPDX-License-Identifier: Apache-2.0
//
// Whether this system lets programs be shut off in name spaces of their own. The engine ends the process when
// it is told to use its sandbox where there is none, so the question has to be answered before.
#pragma once

#include "Platform/WebKit/ChildProcess.h"

class SandboxProbe {
public:
    // Starts a trial, and does not wait for it.
    SandboxProbe();

    // Waits for the trial to end.
    bool succeeded();

private:
    ChildProcess trial_;
};

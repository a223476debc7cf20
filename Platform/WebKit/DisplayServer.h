// SPDX-License-Identifier: Apache-2.0
//
// A display of this process's own, in memory, since the engine's toolkit does not work without one.
#pragma once

#include "Platform/Foundation/NSString.h"
#include "Platform/WebKit/ChildProcess.h"

#include <string>

class DisplayServer {
public:
    // Starts the server, and does not wait for it.
    DisplayServer();

    // Its name, ":7", once it accepts connections; "" and a reason when it does not within a few seconds.
    std::string name(NSString* why);

private:
    void start(const std::vector<std::string>& name);
    std::string readNumber();

    FileDescriptor number_; // where the server writes its number
    ChildProcess server_;
};

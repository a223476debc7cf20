// SPDX-License-Identifier: Apache-2.0
//
// Sees to it that nothing is left of this process when it has ended, however that came: a small process of
// its own waits for that moment, ends what is still running of what this one started, and removes its folder.
// It knows those processes by a variable of their environment.
#pragma once

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/NSDate.h"

#include <string>

class Caretaker {
public:
    // Makes the folder: in the one for temporary files, or in another that everybody may write to; readable
    // by this user alone. To be made before other threads of this process do anything.
    Caretaker();
    // What is done at the end of the process is done now.
    ~Caretaker();
    Caretaker(const Caretaker&) = delete;
    Caretaker& operator=(const Caretaker&) = delete;

    // For what programs keep of the user; "" when there is none to be had.
    const std::string& folder() const { return folder_; }

    // At that date all that this process has started since is ended while it goes on itself, so that nothing
    // it may be waiting for keeps it longer. nil for never; the last date counts.
    void endOthersAt(const NSDate& date);

    // The number of a display whose server, when it is killed, leaves its socket.
    void mindDisplay(int number);

private:
    struct Orders {
        double endOthersAt = 0; // seconds of the monotonic clock; 0 for never
        int display = -1;
    };
    class Watch;
    void send();

    std::string folder_;
    Orders orders_;
    FileDescriptor pipe_; // the orders go in; the other end sees it closed
};

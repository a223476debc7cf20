// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/DisplayServer.h"

#include <chrono>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr std::chrono::seconds kPatience{5};

// Numbers of displays that people sit at are small.
constexpr int kFirstNumber = 1000;

} // namespace

// A number of its own keeps the server clear of one that is just ending: that would take away the socket of
// its successor, which the engine's sandbox needs.
DisplayServer::DisplayServer() { start({":" + std::to_string(kFirstNumber + getpid())}); }

void DisplayServer::start(const std::vector<std::string>& name) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    number_ = FileDescriptor(ends[0]);
    const FileDescriptor writing(ends[1]);
    std::vector<std::string> command = {"Xvfb",      "-displayfd", std::to_string(ends[1]),
                                        "-screen",   "0",          "640x640x24",
                                        "-nolisten", "tcp",        "-noreset",
                                        "-nocursor", "-extension", "GLX"};
    command.insert(command.end(), name.begin(), name.end());
    server_ = ChildProcess(command, &writing);
}

std::string DisplayServer::name(NSString* why) {
    std::string number = readNumber();
    if (number.empty()) {
        start({}); // the number is taken, by a process of another name space
        number = readNumber();
    }
    if (!number.empty()) return ":" + number;
    *why = u"The display server “Xvfb” can’t be started.";
    return {};
}

// "" when the server ends before it is ready, or takes too long over it.
std::string DisplayServer::readNumber() {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    std::string number;
    while (number.empty() || number.back() != '\n') {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
        pollfd waited{number_.get(), POLLIN, 0};
        char bytes[16];
        const bool isReady = left.count() > 0 && poll(&waited, 1, int(left.count())) > 0;
        const ssize_t length = isReady ? read(number_.get(), bytes, sizeof bytes) : 0;
        if (length <= 0) return {};
        number.append(bytes, size_t(length));
    }
    number.pop_back();
    return number;
}

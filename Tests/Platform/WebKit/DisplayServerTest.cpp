// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/DisplayServer.h"

#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace {

TEST(DisplayServer, HasANumberOfItsOwnForEveryProcess) {
    DisplayServer server;
    NSString why;
    const std::string name = server.name(&why);
    EXPECT_EQ(name, ":" + std::to_string(1000 + getpid())) << why.utf8();
    EXPECT_EQ(access(("/tmp/.X11-unix/X" + name.substr(1)).c_str(), F_OK), 0);
}

TEST(DisplayServer, TakesAnotherNumberWhenItsOwnIsTaken) {
    DisplayServer first, second;
    NSString why;
    const std::string own = first.name(&why), other = second.name(&why);
    EXPECT_FALSE(own.empty());
    EXPECT_FALSE(other.empty());
    EXPECT_NE(own, other);
}

TEST(DisplayServer, TakesItsSocketWithIt) {
    std::string socket;
    {
        DisplayServer server;
        NSString why;
        socket = "/tmp/.X11-unix/X" + server.name(&why).substr(1);
    }
    EXPECT_NE(access(socket.c_str(), F_OK), 0);
}

TEST(ChildProcess, TellsItsStatus) {
    EXPECT_EQ(ChildProcess({"true"}).wait(), 0);
    EXPECT_EQ(ChildProcess({"sh", "-c", "exit 3"}).wait(), 3);
    EXPECT_EQ(ChildProcess({"sh", "-c", "kill -9 $$"}).wait(), -1);
    EXPECT_EQ(ChildProcess({"/no/such/program"}).wait(), 127);
    EXPECT_EQ(ChildProcess().wait(), -1);
}

} // namespace

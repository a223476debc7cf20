// SPDX-License-Identifier: Apache-2.0
#include "Platform/WebKit/Caretaker.h"

#include "Platform/WebKit/DisplayServer.h"
#include "Platform/WebKit/SandboxProbe.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <thread>

namespace {

namespace fs = std::filesystem;

template <class Condition>
bool comesTrue(const Condition& condition) {
    for (int i = 0; i < 500 && !condition(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(20));
    return condition();
}

// A program that hears of nothing, in a session of its own.
pid_t startSleeper() {
    const pid_t child = fork();
    if (child == 0) {
        setsid();
        execlp("sleep", "sleep", "1000", nullptr);
        _exit(127);
    }
    return child;
}

int statusOf(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(Caretaker, RemovesItsFolderWithWhatIsInItWhenItsOwnerGoes) {
    std::string path;
    {
        const Caretaker caretaker;
        path = caretaker.folder();
        ASSERT_EQ(fs::status(path).permissions(), fs::perms::owner_all);
        fs::create_directories(path + "/a/b");
        std::ofstream(path + "/a/b/file") << "text";
    }
    EXPECT_TRUE(comesTrue([&] { return !fs::exists(path); }));
}

TEST(Caretaker, HasItsFolderInAnotherPlaceWithoutOneForTemporaryFiles) {
    const char* before = getenv("TMPDIR");
    const std::string kept = before ? before : "";
    setenv("TMPDIR", "/nonexistent", 1);
    EXPECT_EQ(Caretaker().folder().rfind("/tmp/texttool-", 0), 0u);
    before ? setenv("TMPDIR", kept.c_str(), 1) : unsetenv("TMPDIR");
}

TEST(Caretaker, EndsWhatItsKilledOwnerStarted) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t owner = fork();
    if (owner == 0) {
        const Caretaker caretaker;
        const pid_t sleeper = startSleeper();
        if (write(ends[1], &sleeper, sizeof sleeper) > 0) pause();
        _exit(1);
    }
    pid_t sleeper = 0;
    ASSERT_EQ(read(ends[0], &sleeper, sizeof sleeper), ssize_t(sizeof sleeper));
    EXPECT_EQ(kill(sleeper, 0), 0);
    kill(owner, SIGKILL);
    statusOf(owner);
    EXPECT_TRUE(comesTrue([&] { return kill(sleeper, 0) != 0; }));
    for (int end : ends) close(end);
}

TEST(Caretaker, EndsTheOthersWhileItsOwnerGoesOn) {
    const pid_t stranger = startSleeper();
    Caretaker caretaker;
    const pid_t sleeper = startSleeper();
    caretaker.endOthersAt(NSDate(NSDate::now().timeIntervalSinceReferenceDate() + 0.3));
    const int status = statusOf(sleeper);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
    EXPECT_EQ(kill(stranger, 0), 0);
    kill(stranger, SIGKILL);
    statusOf(stranger);
}

TEST(Caretaker, EndsNobodyAtADateThatWasTakenBack) {
    Caretaker caretaker;
    const pid_t sleeper = startSleeper();
    caretaker.endOthersAt(NSDate(NSDate::now().timeIntervalSinceReferenceDate() + 0.1));
    caretaker.endOthersAt(NSDate());
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    EXPECT_EQ(waitpid(sleeper, nullptr, WNOHANG), 0);
    kill(sleeper, SIGKILL);
    statusOf(sleeper);
}

TEST(Caretaker, RemovesTheSocketOfADisplayWhoseServerWasKilled) {
    std::string socket;
    {
        Caretaker caretaker;
        DisplayServer server;
        NSString why;
        const std::string name = server.name(&why);
        ASSERT_FALSE(name.empty()) << why.utf8();
        socket = "/tmp/.X11-unix/X" + name.substr(1);
        EXPECT_TRUE(fs::exists(socket));
        caretaker.mindDisplay(atoi(name.c_str() + 1));
        caretaker.endOthersAt(NSDate::now());
    }
    EXPECT_TRUE(comesTrue([&] { return !fs::exists(socket); }));
}

// Whatever this system says, a trial that nobody waits for is no hindrance.
TEST(SandboxProbe, EndsWithItsOwner) {
    for (int i = 0; i < 5; ++i) SandboxProbe();
    const bool first = SandboxProbe().succeeded(), second = SandboxProbe().succeeded();
    EXPECT_EQ(first, second);
}

} // namespace

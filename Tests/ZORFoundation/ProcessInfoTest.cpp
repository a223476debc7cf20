// SPDX-License-Identifier: Apache-2.0
#include "ZORFoundation/Source/NSProcessInfo+ZOR.h"

#include "Platform/Foundation/NSException.h"
#include "Platform/Foundation/ProcessTable.h"

#include <csignal>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace NSProcessInfoZOR;

int processorQueries = 0;

} // namespace

// Stands before the C library's own, to count what is asked of it.
extern "C" long sysconf(int name) noexcept {
    static auto* real = reinterpret_cast<long (*)(int)>(dlsym(RTLD_NEXT, "sysconf"));
    if (name == _SC_NPROCESSORS_ONLN) ++processorQueries;
    return real(name);
}

namespace {

TEST(Releases, AreToldByTheFoundationNumber) {
    struct {
        double number;
        bool lion, mountainLion, mavericks, yosemite;
    } cases[] = {
        {751.99, false, false, false, false}, {752, true, false, false, false},
        {833.10, true, false, false, false},  {833.99, true, false, false, false},
        {834, true, true, false, false},      {945.00, true, true, false, false},
        {945.99, true, true, false, false},   {946, true, true, true, false},
        {1056.00, true, true, true, false},   {1057, true, true, true, true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(zorIsLionOrBetter(c.number), c.lion) << c.number;
        EXPECT_EQ(zorIsMountainLionOrBetter(c.number), c.mountainLion) << c.number;
        EXPECT_EQ(zorIsMavericksOrBetter(c.number), c.mavericks) << c.number;
        EXPECT_EQ(zorIsYosemiteOrBetter(c.number), c.yosemite) << c.number;
    }
    EXPECT_TRUE(zorIsYosemiteOrBetter());
}

TEST(OSVersion, FitsTheFoundationNumber) { EXPECT_EQ(zorOSVersionString().utf8(), "10.10.5"); }

TEST(Processors, AreCountedOnce) {
    const long online = sysconf(_SC_NPROCESSORS_ONLN);
    (void)zorNumberOfProcessors();
    processorQueries = 0;
    EXPECT_EQ(zorNumberOfProcessors(), unsigned(online));
    EXPECT_EQ(processorQueries, 0);
}

TEST(OpenFiles, LimitIsReadAndSet) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(zorMaximumOpenFilesCount(), before.rlim_cur);
    pid_t child = fork();
    if (child == 0) {
        zorSetMaximumOpenFilesCount(100);
        rlimit after{};
        getrlimit(RLIMIT_NOFILE, &after);
        _exit(after.rlim_cur == 100 && after.rlim_max == 100 && zorMaximumOpenFilesCount() == 100 ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

// A child of this user with a command name of our choosing.
class NamedProcess {
public:
    explicit NamedProcess(const char* name, uid_t user = getuid()) {
        int ready[2];
        EXPECT_EQ(pipe(ready), 0);
        child_ = fork();
        if (child_ == 0) {
            if (user != getuid() && setuid(user) != 0) _exit(1);
            prctl(PR_SET_NAME, name);
            [[maybe_unused]] ssize_t told = write(ready[1], "x", 1);
            pause();
            _exit(0);
        }
        char byte = 0;
        close(ready[1]);
        EXPECT_EQ(read(ready[0], &byte, 1), 1);
        close(ready[0]);
    }
    ~NamedProcess() {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }

private:
    pid_t child_;
};

TEST(RunningProcess, IsFoundByItsExactName) {
    NamedProcess process("zorSleeper");
    EXPECT_TRUE(zorIsBSDProcessRunning(u"zorSleeper"));
    EXPECT_FALSE(zorIsBSDProcessRunning(u"ZORSLEEPER"));
    EXPECT_FALSE(zorIsBSDProcessRunning(u"zorSleepe"));
    EXPECT_FALSE(zorIsBSDProcessRunning(u""));
}

TEST(RunningProcess, WithAFullKernelNameIsKnownBySixteenBytes) {
    // This program's own name is longer than what the kernel keeps.
    std::string name = program_invocation_short_name;
    ASSERT_GT(name.size(), 17u);
    EXPECT_TRUE(zorIsBSDProcessRunning(NSString::fromUTF8(name.substr(0, 16))));
    EXPECT_FALSE(zorIsBSDProcessRunning(NSString::fromUTF8(name.substr(0, 17))));
    EXPECT_FALSE(zorIsBSDProcessRunning(NSString::fromUTF8(name)));
}

TEST(RunningProcess, OfAnotherUserIsNotSeen) {
    bool found = true;
    ASSERT_TRUE(findProcessOfUser(getuid() + 4711, "init", found));
    EXPECT_FALSE(found);
    if (getuid() != 0) return; // only root can start a process of somebody else
    NamedProcess process("zorStranger", 65534);
    EXPECT_FALSE(zorIsBSDProcessRunning(u"zorStranger"));
    ASSERT_TRUE(findProcessOfUser(65534, "zorStranger", found));
    EXPECT_TRUE(found);
}

#ifndef TEXTTOOL_SANITIZED // whose own checks need descriptors
TEST(RunningProcess, IsAnAssertionWhereTheTableCannotBeRead) {
    pid_t child = fork();
    if (child == 0) {
        rlimit none{};
        setrlimit(RLIMIT_NOFILE, &none);
        try {
            (void)zorIsBSDProcessRunning(u"init");
        } catch (const NSException& e) {
            bool right = e.name().utf8() == "NSInternalInconsistencyException" &&
                         e.reason().utf8() == "Invalid parameter not satisfying: err == 0";
            _exit(right ? 0 : 1);
        }
        _exit(2);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}
#endif

} // namespace
